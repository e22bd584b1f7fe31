// The wait for a render that keeps the interface alive.
#pragma once

#include "base/result.h"
#include "ports/event_loop.h"

#include <functional>

namespace kvo {

class clsSlumber {
 public:
  /// What it asks and tells while it waits; each may wake it.
  struct Watch {
    std::function<void()> Slumber = [] {};                      ///< the event, each interval
    std::function<bool()> hasEnded = [] { return false; };      ///< the process
    std::function<bool()> seesSentinel = [] { return false; };  ///< each fourth interval
    std::function<void(int time)> overran = [](int) {};         ///< the period is over, for the n-th time
  };

  explicit clsSlumber(EventLoop& loop) : loop_(loop) {}

  /// Milliseconds between two events, 500 at first. Fails for 0 and less. From within the event it holds for
  /// the next one.
  Outcome SlumberInterval(int milliseconds);

  /// Waits until the process has ended, its sentinel stands or WakeUp is called; the end and WakeUp are
  /// heard at once. Goes on when `milliseconds` are over, which is told; a period above four minutes is
  /// halved then. Fails for 0 and less.
  Outcome Slumber(int milliseconds, const Watch& watch);

  void WakeUp() { woken_ = true; }

  /// Of the present period, to a tenth.
  [[nodiscard]] double ElapsedMilliseconds() const { return elapsed_; }

 private:
  // True when there is nothing more to wait for.
  bool sleepOne(const Watch& watch);
  bool waitPeriod(int milliseconds, const Watch& watch);
  void takeTime();

  EventLoop& loop_;
  int interval_ = 500;
  int rounds_ = 0;
  bool woken_ = false;
  double elapsed_ = 0;
  std::chrono::milliseconds begun_{};
};

}  // namespace kvo
