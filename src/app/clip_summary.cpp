#include "app/clip_summary.h"

#include "base/numbers.h"
#include "program/clip_texts.h"

namespace kvo {
namespace {

std::string_view kindWord(const Movie& clip) {
  switch (kindOf(clip)) {
    case ClipKind::Still:
      return "still";
    case ClipKind::Sound:
      return "sound";
    case ClipKind::Page:
      return "web page";
    case ClipKind::Stream:
      return "stream";
    default:
      return "video";
  }
}

std::string soundText(const StreamFacts& facts) {
  if (!facts.hasAudio) return "no sound";
  const auto channels = facts.channels == 1   ? std::string("mono")
                        : facts.channels == 2 ? std::string("stereo")
                                              : std::to_string(facts.channels) + " channels";
  return "sound " + ShortText(facts.sampleRate / 1000.0) + " kHz " + channels;
}

}  // namespace

std::string clipSummary(const Movie& clip, const StreamFacts* facts) {
  std::string text(kindWord(clip));
  if (facts == nullptr) return text;
  const auto add = [&](const std::string& part) { text.append(part.empty() ? "" : ", ").append(part); };
  add(facts->codec);
  if (facts->hasVideo) add(std::to_string(facts->width) + " x " + std::to_string(facts->height));
  if (facts->isStill) return text;
  if (facts->hasVideo && facts->frameRate > 0)
    add(ShortText(ToNumber(FormatMask(facts->frameRate, "0.000"))) + " frames a second");
  add(FormatMask(facts->duration, "0.00") + " s");
  add(soundText(*facts));
  return text;
}

}  // namespace kvo
