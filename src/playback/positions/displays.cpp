#include "playback/positions/displays.h"

#include "base/numbers.h"
#include "core/telling/translated.h"
#include "playback/positions/section.h"

#include <array>
#include <cmath>

namespace kvo {
namespace {

struct DigitalRow {
  double above;
  std::string_view mask;
};
constexpr std::array<DigitalRow, 6> kDigital{{{100000, "#######"},
                                              {10000, "####.0"},
                                              {1000, "###.00"},
                                              {100, "0#.000"},
                                              {10, "0.0000"},
                                              {0, "0#.0000"}}};
constexpr std::string_view kBelowNought = "0###.00";
constexpr std::string_view kSevenNoughts = "0000000";

// "00:04:", of seconds that are rounded to whole ones.
std::string minutesAndSeconds(double seconds) {
  const double whole = RoundToWhole(seconds);
  const double minutes = std::floor(whole / 60);
  return FormatMask(minutes, "###00") + ":" + FormatMask(whole - minutes * 60, "##00") + ":";
}

}  // namespace

std::string positionLabel(double position, double duration) {
  return translated("Time = %1 of %2", {FormatMask(position, "0.00"), FormatMask(duration, "0.00")});
}

std::string framePositionLabel(double frame, double frames) {
  return translated("Frame = %1 of %2", {FormatMask(frame, "0"), FormatMask(frames, "0")});
}

std::string digitsOfSeconds(double seconds, double framesPerSecond) {
  return minutesAndSeconds(seconds) + FormatMask(RoundToWhole(framesPerSecond * seconds), "0##0");
}

std::string digitsOfFrame(double frame, double framesPerSecond) {
  return minutesAndSeconds(framesPerSecond > 0 ? frame / framesPerSecond : 0) + FormatMask(frame, "##0");
}

std::string_view digitalFormat(double x) {
  for (const auto& row : kDigital) {
    if (x > row.above) return row.mask;
  }
  return x < 0 ? kBelowNought : kSevenNoughts;
}

std::string digitalText(double x) { return FormatMask(x, digitalFormat(x)); }

std::string rateLabel(double rate) { return FormatMask(rate, "#0.0#") + "x"; }

std::string levelLabel(double level) { return FormatMask(level, "#0.0#"); }

std::string markerTime(double seconds) {
  const double whole = RoundToWhole(seconds);
  const double minutes = std::floor(whole / 60);
  return FormatMask(minutes, "###00") + "m:" + FormatMask(whole - minutes * 60, "##00");
}

double countedFramesPerSecond(const Movie& clip, const KVO2& settings) {
  const double rate = framesPerSecond(clip);
  return rate > 0 ? rate : static_cast<double>(settings.preferences().OutPutFrameRate);
}

void Displays::UpdateDigital() { DisplayDigital(parts_.player.PlayerGetCurrentPosition()); }

void Displays::DisplayDigital(double position) {
  auto& glass = parts_.glass;
  const auto* clip = clipInHand(parts_.collection);
  const bool hasLength = clip != nullptr && clip->DurationTime().wholeNumber().value_or(0) > 0;
  if (!hasLength || clip->IsStill()) {
    glass.digits.clear();
    glass.digitsTip.clear();
    return;
  }
  const double rate = countedFramesPerSecond(*clip, parts_.settings);
  if (parts_.player.PlayerGetDisplayMode() == DisplayMode::Frames) {
    glass.digits = digitsOfFrame(position, rate);
    glass.digitsTip = "Point Time (mm:ss:frames)";
  } else {
    glass.digits = digitsOfSeconds(position, rate);
    glass.digitsTip = "Point in Time (mm:ss:frames) - Click for Direct Positioner";
  }
}

void Displays::showLabel() {
  const auto& player = parts_.player;
  if (player.PlayerIsEmpty()) {
    parts_.label = translated("Waiting for media...");
    return;
  }
  const double position = player.PlayerGetCurrentPosition();
  const auto* clip = clipInHand(parts_.collection);
  parts_.label = player.PlayerGetDisplayMode() == DisplayMode::Frames && clip != nullptr
                     ? framePositionLabel(position, clip->DurationFrames().number())
                     : positionLabel(position, slider_.duration());
}

void Displays::showPosition() {
  if (parts_.player.PlayerIsEmpty()) {
    const auto* clip = clipInHand(parts_.collection);
    if (clip != nullptr && !clip->IsStill() && !clip->IsHTML()) showLabel();
    return;
  }
  slider_.SetposAsPct(slider_.TimeAsPct(), "");
  UpdateDigital();
  showLabel();
}

}  // namespace kvo
