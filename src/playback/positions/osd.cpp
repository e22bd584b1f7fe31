#include "playback/positions/osd.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kOsdTick = 200;  // milliseconds
constexpr int kOsdTicks = 10;

}  // namespace

Osd::Osd(EventLoop& loop, const DisplayModeState& mode, FadingDisplay& state)
    : mode_(mode), state_(state), timer_(loop.timer([this] { tick(); })) {}

void Osd::show(std::string title, std::string value, int lights) {
  state_ = {true, false, std::move(title), std::move(value), std::clamp(lights, 0, kLights)};
  ticks_ = 0;
  killed_ = mode_.panels.osdsKilled;
  timer_->start(kOsdTick);
}

void Osd::close() {
  state_.visible = false;
  timer_->stop();
}

// The window fades it on the tick after the last, and it is gone with the one behind that.
void Osd::tick() {
  ++ticks_;
  state_.faded = ticks_ >= kOsdTicks;
  if (ticks_ > kOsdTicks || mode_.panels.osdsKilled != killed_) close();
}

}  // namespace kvo
