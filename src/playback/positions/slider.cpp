#include "playback/positions/slider.h"

#include "base/numbers.h"
#include "base/text.h"
#include "playback/positions/section.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr Twips kGlideStep = 60;
constexpr int kGlideSteps = 30;
constexpr int kGlideInterval = 20;  // milliseconds
constexpr int kGlideRest = 5;       // more than that, at three of the steps

bool restsAt(int step) { return step == 3 || step == 18 || step == 28; }

bool isTrack(const Movie* clip) { return clip != nullptr && extensionOf(clip->MovieName()) == "CDA"; }

}  // namespace

Twips percentUnit(const SliderPlace& line) { return RoundToWhole(std::trunc(line.X2 - line.X1) / 100); }

Twips placeOnLine(const SliderPlace& line, double pct) {
  return line.X1 + std::clamp(pct, 0.0, 100.0) * percentUnit(line);
}

double percentOnLine(const SliderPlace& line, Twips at) {
  const Twips unit = percentUnit(line);
  return unit > 0 ? std::clamp((at - line.X1) / unit, 0.0, 100.0) : 0;
}

double trackSeconds(std::string_view text, bool extended) {
  if (extended && !text.empty()) text.remove_prefix(1);
  const auto minutes = text.find('m');
  if (minutes == std::string_view::npos) return ToNumber(text);
  return ToNumber(text.substr(0, minutes)) * 60 + ToNumber(text.substr(minutes + 1));
}

PositionSlider::PositionSlider(const Parts& parts)
    : parts_(parts), gliding_(parts.loop.timer([this] { glide(); })) {}

double PositionSlider::duration() const {
  const auto* clip = clipInHand(parts_.collection);
  if (isTrack(clip)) return trackSeconds(clip->DurationTime().text(), clip->IsExtendedCD());
  if (!parts_.player.PlayerIsEmpty()) {
    if (const double length = parts_.player.PlayerGetDuration(); length > 0) return length;
  }
  if (clip == nullptr) return 0;
  const bool frames = parts_.player.PlayerGetDisplayMode() == DisplayMode::Frames;
  return (frames ? clip->DurationFrames() : clip->DurationTime()).wholeNumber().value_or(0);
}

double PositionSlider::TimeAsPct() const {
  if (disc_ != nullptr && isTrack(clipInHand(parts_.collection))) {
    const double length = trackSeconds(disc_->trackLength());
    return length > 0 ? trackSeconds(disc_->position()) / (length / 100) : 0;
  }
  return TimeAsPctUnfmt(parts_.player.PlayerGetCurrentPosition());
}

double PositionSlider::TimeAsPctUnfmt(double position) const {
  const double length = duration();
  return length > 0 ? position / (length / 100) : 0;
}

void PositionSlider::SetposAsPct(double pct, std::string_view which) {
  const double to = std::clamp(pct, 0.0, 100.0);
  auto& state = parts_.state;
  if (which == "IN") {
    state.markIn = to / 100;
  } else if (which == "OUT") {
    state.markOut = to / 100;
  } else if (parts_.held.BlobDragging) {
    return;
  } else if (gliding_->running()) {
    glideTo_ = to;
  } else if (std::exchange(glideDue_, false) && to > state.position * 100) {
    glideTo_ = to;
    glideSteps_ = 0;
    gliding_->start(kGlideInterval);
  } else {
    state.position = to / 100;
  }
}

void PositionSlider::hold(double part) {
  gliding_->stop();
  glideDue_ = false;
  parts_.state.position = std::clamp(part, 0.0, 1.0);
}

void PositionSlider::glide() {
  const auto& line = parts_.mode.slider;
  const Twips at = placeOnLine(line, parts_.state.position * 100) + kGlideStep;
  if (++glideSteps_ >= kGlideSteps || at >= placeOnLine(line, glideTo_)) {
    gliding_->stop();
    parts_.state.position = glideTo_ / 100;
    return;
  }
  parts_.state.position = percentOnLine(line, at) / 100;
  if (restsAt(glideSteps_)) gliding_->start(kGlideInterval + kGlideRest);
  if (restsAt(glideSteps_ - 1)) gliding_->start(kGlideInterval);
}

double PositionSlider::PosPctToSecs() const { return parts_.state.position * 100 * (duration() / 100); }

double PositionSlider::PosPctToSecsMark(int which) const {
  return (which == 0 ? parts_.state.markIn : parts_.state.markOut) * 100 * (duration() / 100);
}

}  // namespace kvo
