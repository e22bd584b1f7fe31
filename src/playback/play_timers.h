// The timers of playing, by the names that they are told by. Whoever has them may start and stop them; what a
// tick does is said once, by the room that does it.
#pragma once

#include "ports/event_loop.h"

#include <memory>
#include <utility>

namespace kvo {

/// A timer that keeps its interval while it stands still. Another interval, or start(), counts from now on.
class PlayTimer {
 public:
  PlayTimer(EventLoop& loop, int milliseconds)
      : interval_(milliseconds), timer_(loop.timer([this] {
          if (tick_) tick_();
        })) {}

  void ticks(std::function<void()> tick) { tick_ = std::move(tick); }
  void start() { timer_->start(interval_); }
  void stop() { timer_->stop(); }
  void enable(bool on) { on ? start() : stop(); }
  [[nodiscard]] bool enabled() const { return timer_->running(); }
  [[nodiscard]] int interval() const { return interval_; }
  void setInterval(int milliseconds) {
    interval_ = milliseconds;
    if (enabled()) start();
  }

 private:
  int interval_;  // milliseconds
  std::function<void()> tick_;
  std::unique_ptr<Timer> timer_;
};

struct PlayTimers {
  explicit PlayTimers(EventLoop& loop)
      : Timer1(loop, 600),
        Timer3(loop, 100),
        Timer4(loop, 600),
        Timer5(loop, 400),
        Timer6(loop, 700),
        Timer7(loop, 60),
        Timer8(loop, 200),
        Timer9(loop, 200),
        StillTimer(loop, 1000),
        IntroEnder(loop, 350) {}

  PlayTimer Timer1;      ///< the monitor of position and end
  PlayTimer Timer3;      ///< applies a drag of the position handle or a mark
  PlayTimer Timer4;      ///< starts the animation behind sound
  PlayTimer Timer5;      ///< moves the position handle
  PlayTimer Timer6;      ///< the sequencer
  PlayTimer Timer7;      ///< plays backwards
  PlayTimer Timer8;      ///< repeats a held key
  PlayTimer Timer9;      ///< the wave
  PlayTimer StillTimer;  ///< ends a still
  PlayTimer IntroEnder;  ///< ends the start-up video
};

}  // namespace kvo
