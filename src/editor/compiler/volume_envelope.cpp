#include "editor/compiler/volume_envelope.h"

#include "base/text.h"
#include "editor/compiler/durations.h"
#include "vocabulary/effects.h"

namespace kvo {
namespace {

std::string line(std::string_view time, std::string_view value) {
  return blanks(25) + "<linear time=" + quoted(time) + " value=" + quoted(value) + "/>\r\n";
}

double heldFade(double fade, double d) { return fade > d / 2 ? d / 4 : fade; }

std::string linesWithFades(const Movie& clip, const LevelingOptions& o, double d, const std::string& level) {
  if (d <= 2) return line("0.001", level);
  if (o.Silent) return line("0", "0") + line(fixedText(d), "0");
  if (!clip.RenderAudio()) return line("0.1", level);
  const double in = heldFade(o.FadeIn, d);
  const double out = heldFade(o.FadeOut, d);
  std::string text;
  if (in > 0) text += line(fixedText(in), level);
  if (out <= 0) return text + line(fixedText(d), level);
  return text + line(fixedText(d - out), level) + line(fixedText(d), "0");
}

std::string linesWithoutFades(const Compilation& c, const Movie& clip, const LevelingOptions& o, double d,
                              const std::string& level) {
  std::string text;
  if (o.Silent) {
    text += line("0.001", "0");
  } else if (c.settings.preferences().DubInPlaylistAudioTrks) {
    text += clip.HasAudioFade() ? line(fixedText(ToNumber(o.AutoFadeIn)), level) : line("0.01", level);
  }
  if (clip.HasAudioFade() && !o.AutoFadeOut.empty()) {
    text +=
        line(fixedText(ToNumber(o.AutoFadeOut)), level) + line(fixedText(d), level) + line(fixedText(d), "0");
  }
  return text;
}

}  // namespace

void AddLevelingInfo(const Compilation& c, std::string& trackText, const LevelingOptions& o) {
  const auto& clip = c.clips()[o.ClipNo];
  const bool isFirst = ++c.editor.AudioLevelingCount == 1;
  const auto endClip = blanks(10) + "</clip>\r\n";
  if (o.Silent && !isFirst) {
    trackText += endClip;
    return;
  }
  const double start = attributeNumber(o.StartText);
  const double stop = attributeNumber(o.StopText);
  const double d = stop - start;
  const auto level = ShortText(clip.AudioOutputLevel());

  trackText += blanks(15) + "<effect start=\"0\" " +
               (isFirst ? " stop=" + quoted(FormatMask(stop, "0.0")) : "stop=" + quoted(fixedText(d))) +
               " clsid=" + quoted(effect_ids::kAudioEnvelope) + " >\r\n";
  trackText +=
      blanks(20) + "<param name=" + quoted("Vol") + " value=" + quoted(o.FadeIn > 0 ? "0" : level) + ">\r\n";
  trackText += o.WithFades ? linesWithFades(clip, o, d, level) : linesWithoutFades(c, clip, o, d, level);
  if (!clip.HasAudioFade()) {
    if (o.Silent) {
      trackText += line("0.002", "0");
    } else if (!isFirst) {
      trackText += line(fixedText(stop), level);
    }
  }
  trackText += blanks(20) + "</param>\r\n" + blanks(15) + "</effect>\r\n" + endClip;
}

std::string constantEnvelope(double length, Single level) {
  return blanks(15) + "<effect start=" + quoted("0") + " stop=" + quoted(fixedText(length)) +
         " clsid=" + quoted(effect_ids::kAudioEnvelope) + " >\r\n" + blanks(20) +
         "<param name=" + quoted("Vol") + " value=" + quoted(ShortText(level)) + ">\r\n" + blanks(20) +
         "</param>\r\n" + blanks(15) + "</effect>\r\n";
}

}  // namespace kvo
