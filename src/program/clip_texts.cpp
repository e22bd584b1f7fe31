#include "program/clip_texts.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/messages.h"
#include "core/telling/translated.h"
#include "intake/avi_compressor.h"
#include "playback/clip_kinds.h"
#include "playback/positions/displays.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kSilence = 10000;  // hundredths of a decibel
constexpr double kUnshifted = 1000;

// "640 x 480" and "44.1 KHz" as they are shown.
std::string resolutionText(const Movie& clip) {
  if (clip.IsStill() && clip.StillW() > 0)
    return std::to_string(clip.StillW()) + " × " + std::to_string(clip.StillH());
  return replaced(clip.Resolution().text(), " x ", " × ");
}

bool hasPicture(const Movie& clip) { return resolutionText(clip).find(" × ") != std::string::npos; }

std::string formatText(const Movie& clip) {
  auto text = resolutionText(clip);
  const auto kind = isAddress(clip.MovieName()) ? std::string() : wholeExtension(clip.MovieName());
  return kind.empty() ? text : text.append(text.empty() ? "" : " - ").append(kind);
}

double rateOf(const Movie& clip) {
  if (clip.FrameRate() > 0) return static_cast<double>(clip.FrameRate());
  const auto frames = clip.DurationFrames().wholeNumber();
  const auto length = clip.DurationTime().wholeNumber();
  return frames && length && *length > 0 ? *frames / *length : 0;
}

// What the file's streams tell, and the code that an AVI names.
Detail codecDetail(const Movie& clip, const StreamFacts* facts) {
  std::string codec = facts != nullptr ? facts->codec : std::string();
  if (!isAviKind(clip) || clip.VideoCodec().empty()) return codec.empty() ? Detail() : Detail{"Codec", codec};
  if (codec.empty()) {
    codec = clip.VideoCodec();
  } else if (namesCodec(clip.VideoCodec())) {
    codec += " (" + clip.VideoCodec() + ")";
  }
  return {"Codec", codec, std::string(LoadResString(384))};
}

std::string balanceText(const Movie& clip) {
  const double balance = clip.Balance().number() - kUnshifted;
  return translated(balance == 0 ? "Stereo" : balance < 0 ? "Left" : "Right");
}

}  // namespace

ClipKind kindOf(const Movie& clip) {
  if (clip.IsHTML()) return ClipKind::Page;
  if (isStreamClip(clip)) return ClipKind::Stream;
  if (clip.IsStill()) return ClipKind::Still;
  const auto* kind = mediaKind(clip.MovieName());
  if (kind != nullptr && kind->byNameAlone)
    return kind->mediaClass == MediaClass::Sound ? ClipKind::Sound : ClipKind::Video;
  if (hasPicture(clip)) return ClipKind::Video;
  const bool soundByName = kind != nullptr && kind->mediaClass == MediaClass::Sound;
  return soundByName || clip.Resolution().isSet() ? ClipKind::Sound : ClipKind::Video;
}

std::optional<double> lengthOf(const Movie& clip, const KVO2& settings) {
  if (const auto length = clip.DurationTime().wholeNumber(); length && *length > 0) return length;
  if (clip.IsStill()) return static_cast<double>(settings.state.DefaultStillDuration);
  return std::nullopt;
}

std::optional<double> playedLength(const Movie& clip) {
  const auto length = clip.DurationTime().wholeNumber();
  return length && *length > 0 && !clip.IsStill() ? length : std::nullopt;
}

std::pair<double, double> sectionOf(const Movie& clip, double length) {
  const double end = clip.LoopEnd().number();
  return {clip.LoopStart().number(), end > 0 ? std::min(end, length) : length};
}

bool hasSound(const Movie& clip) { return !clip.IsStill() && !clip.IsHTML(); }

std::string playTimeText(double seconds) {
  const auto whole = static_cast<long>(RoundToWhole(seconds));
  const auto two = [](long number) { return FormatMask(static_cast<double>(number), "00"); };
  if (whole < 3600) return std::to_string(whole / 60) + ":" + two(whole % 60);
  return std::to_string(whole / 3600) + ":" + two(whole / 60 % 60) + ":" + two(whole % 60);
}

std::string clipsText(std::size_t count) {
  return translated(count == 1 ? "%1 clip" : "%1 clips", {std::to_string(count)});
}

std::string totalText(double seconds) {
  const double whole = RoundToWhole(seconds);
  const double minutes = std::floor(whole / 60);
  return translated("%1m %2s", {FormatMask(minutes, "#0"), FormatMask(whole - minutes * 60, "00")});
}

ClipRow rowOf(const Movie& clip, const KVO2& settings) {
  const auto length = lengthOf(clip, settings);
  return {listedName(clip), length ? playTimeText(*length) : std::string(), kindOf(clip)};
}

std::string windowCaption(const Movie& clip) {
  auto name = listedName(clip);
  switch (kindOf(clip)) {
    case ClipKind::Video:
      return translated(isDvdFile(clip.MovieName()) ? "%1 - DVD" : "%1 - Video", {name});
    case ClipKind::Sound:
      return translated("%1 - Audio", {name});
    case ClipKind::Still:
    case ClipKind::Page:
    case ClipKind::Stream:
      break;
  }
  return name;
}

std::array<Detail, 9> detailsOf(const Movie& clip, const KVO2& settings, const StreamFacts* facts) {
  std::array<Detail, 9> pairs{
      {{"File", clip.MovieName()}, {"Folder", clip.Path()}, {"Format", formatText(clip)}}};
  if (const auto length = lengthOf(clip, settings)) {
    pairs[3] = {"Length", translated("%1 s", {FormatMask(*length, "0.00")})};
    if (!clip.IsStill()) {
      const auto [start, end] = sectionOf(clip, *length);
      pairs[4] = {"Section", translated("%1 to %2 s", {FormatMask(start, "0.00"), FormatMask(end, "0.00")})};
    }
  }
  if (hasSound(clip)) {
    pairs[5] = {"Speed", FormatMask(static_cast<double>(clip.Playspeed()) / 10, "#0.0#") + " x"};
    pairs[6] = {"Volume", std::to_string(percentOf(clip.Volume())) + "%"};
    pairs[7] = {"Balance", balanceText(clip)};
  }
  pairs[8] = codecDetail(clip, facts);
  return pairs;
}

std::vector<std::string> chipsOf(const Movie& clip, const StreamFacts* facts) {
  std::vector<std::string> chips;
  if (auto size = resolutionText(clip); !size.empty()) chips.push_back(std::move(size));
  if (const double rate = rateOf(clip); rate > 0 && hasPicture(clip) && !clip.IsStill())
    chips.push_back(translated("%1 fps", {ShortText(ToNumber(FormatMask(rate, "0.##")))}));
  if (facts != nullptr && facts->channels > 0) {
    const auto* const text = facts->channels == 1 ? "Mono" : facts->channels == 2 ? "Stereo" : "%1 channels";
    chips.push_back(translated(text, {std::to_string(facts->channels)}));
  }
  return chips;
}

std::string positionText(const Movie& clip, double position) {
  const auto length = playedLength(clip);
  return length ? positionLabel(position, *length) : std::string();
}

std::string digitsAt(const Movie& clip, double position, const KVO2& settings) {
  if (!playedLength(clip)) return {};
  return digitsOfSeconds(position, countedFramesPerSecond(clip, settings));
}

SliderState sliderOf(const Movie& clip) {
  const auto length = playedLength(clip);
  if (!length) return {};
  const auto [start, end] = sectionOf(clip, *length);
  const auto part = [&](double seconds) { return std::clamp(seconds / *length, 0.0, 1.0); };
  return {true, *length, part(start), part(end), part(start)};
}

int percentOf(Integer attenuation) {
  if (attenuation >= kSilence) return 0;
  return static_cast<int>(RoundToWhole(100 * std::pow(10, -std::max<int>(attenuation, 0) / 2000.0)));
}

Integer attenuationOf(int percent) {
  const double loss = percent <= 0 ? kSilence : -2000 * std::log10(std::min(percent, 100) / 100.0);
  return toInteger(std::min(loss, kSilence)).value_or(0);
}

}  // namespace kvo
