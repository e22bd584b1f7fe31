#include "editor/compiler/volume_envelope.h"

#include "editor/compiler/document_text.h"
#include "vocabulary/effects.h"

namespace kvo {
namespace {

std::string line(std::string_view time, std::string_view value) { return tag::key("linear", time, value); }

std::string line(double time, std::string_view value) { return line(fixedText(time), value); }

double heldFade(double fade, double d) { return fade > d / 2 ? d / 4 : fade; }

std::string linesWithFades(const TimelineClip& clip, const LevelingOptions& o, double d,
                           const std::string& level) {
  if (d <= 2) return line("0.001", level);
  if (o.Silent) return line("0", "0") + line(d, "0");
  if (!clip.RenderAudio) return line("0.1", level);
  const double in = heldFade(o.FadeIn, d);
  const double out = heldFade(o.FadeOut, d);
  std::string text;
  if (in > 0) text += line(in, level);
  if (out <= 0) return text + line(d, level);
  return text + line(d - out, level) + line(d, "0");
}

std::string linesWithoutFades(const TimelineClip& clip, const LevelingOptions& o, double d,
                              const std::string& level) {
  std::string text;
  if (o.Silent) {
    text += line("0.001", "0");
  } else if (o.WithMusic) {
    text += clip.HasAudioFade ? line(o.AutoFadeIn.value_or(0), level) : line("0.01", level);
  }
  if (clip.HasAudioFade && o.AutoFadeOut) text += line(*o.AutoFadeOut, level) + line(d, level) + line(d, "0");
  return text;
}

std::string envelopeClass() { return std::string(effect_ids::kAudioEnvelope); }

}  // namespace

std::string AddLevelingInfo(const TimelineClip& clip, int& counter, const LevelingOptions& o) {
  const bool isFirst = ++counter == 1;
  if (o.Silent && !isFirst) return std::string(tag::kEndClip);
  const double d = o.Stop - o.Start;
  const auto level = shortNumber(clip.record->AudioOutputLevel());
  auto text =
      isFirst
          ? tag::effect(
                {{"start", "0"}, {"stop", stampText({o.Stop, Digits::One}), 2}, {"clsid", envelopeClass()}},
                " >")
          : tag::effect({{"start", "0"}, {"stop", fixedText(d)}, {"clsid", envelopeClass()}}, " >");
  text += tag::openParam("Vol", o.FadeIn > 0 ? "0" : level);
  text += o.WithFades ? linesWithFades(clip, o, d, level) : linesWithoutFades(clip, o, d, level);
  if (!clip.HasAudioFade) {
    if (o.Silent) {
      text += line("0.002", "0");
    } else if (!isFirst) {
      text += line(o.Stop, level);
    }
  }
  return text.append(tag::kEndParam).append(tag::kEndEffect).append(tag::kEndClip);
}

std::string constantEnvelope(double length, Single level) {
  return tag::effect({{"start", "0"}, {"stop", fixedText(length)}, {"clsid", envelopeClass()}}, " >")
      .append(tag::openParam("Vol", shortNumber(level)))
      .append(tag::kEndParam)
      .append(tag::kEndEffect);
}

}  // namespace kvo
