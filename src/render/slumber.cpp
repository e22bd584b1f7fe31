#include "render/slumber.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kLongestNap = 50;      // milliseconds: so soon an end is heard
constexpr int kLongPeriod = 240000;  // milliseconds
constexpr int kSentinelRounds = 4;

}  // namespace

Outcome clsSlumber::SlumberInterval(int milliseconds) {
  if (milliseconds <= 0) return Error{"SlumberInterval must be greater than 0!"};
  interval_ = milliseconds;
  return {};
}

void clsSlumber::takeTime() {
  // The loop's clock has whole milliseconds, which is finer than any use of this.
  elapsed_ = static_cast<double>((loop_.now() - begun_).count());
}

// True when the process or a call has ended the wait.
bool clsSlumber::sleepOne(const Watch& watch) {
  const auto until = loop_.now() + std::chrono::milliseconds(interval_);
  while (!woken_ && !watch.hasEnded() && loop_.now() < until) {
    const auto left = static_cast<int>((until - loop_.now()).count());
    loop_.wait(std::min(left, kLongestNap));
  }
  return woken_ || watch.hasEnded();
}

bool clsSlumber::waitPeriod(int milliseconds, const Watch& watch) {
  begun_ = loop_.now();
  elapsed_ = 0;
  do {
    const bool ended = sleepOne(watch);
    watch.Slumber();
    takeTime();
    if (ended || woken_) return true;
    if (++rounds_ % kSentinelRounds == 0 && watch.seesSentinel()) return true;
  } while (elapsed_ < milliseconds);
  return false;
}

Outcome clsSlumber::Slumber(int milliseconds, const Watch& watch) {
  if (milliseconds <= 0) return Error{"Parameter MilliSeconds must be greater than 0!"};
  woken_ = false;
  rounds_ = 0;
  for (int overruns = 1; !waitPeriod(milliseconds, watch); ++overruns) {
    watch.overran(overruns);
    if (milliseconds > kLongPeriod) milliseconds /= 2;
  }
  return {};
}

}  // namespace kvo
