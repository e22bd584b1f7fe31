#include "adapters/mpv/mpv_seeks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

// A mark is written with a few decimals and a stamp may count milliseconds: a picture that begins this little
// later is meant. Seconds.
constexpr double kTolerance = 0.00075;
// How far ahead of a picture of a constant rate the core looks for it, where a picture lasts longer than
// twice that.
constexpr double kAhead = 0.002;

// Where a container finds a place by its bytes, the key picture that is needed may lie anywhere ahead of it.
// Seconds.
constexpr std::array kAheads = {0.0, 1.0, 3.0, 9.0, 27.0, 81.0};

}  // namespace

void MpvSeeks::want(double seconds) {
  wish_ = seconds;
  steps_ = 0;
}

bool MpvSeeks::isShown(double seconds, double shown) const {
  if (busy()) return false;
  if (rate_ <= 0) return std::fabs(seconds - shown) <= kTolerance;
  return seconds >= shown - kTolerance && seconds < shown + 1 / rate_ - kTolerance;
}

// Of a constant rate.
double MpvSeeks::beginOf(double seconds) const { return std::floor((seconds + kTolerance) * rate_) / rate_; }

double MpvSeeks::askFor(double seconds) const {
  return rate_ > 0 ? beginOf(seconds) - std::min(kAhead, 0.25 / rate_) : seconds - kTolerance;
}

std::optional<double> MpvSeeks::wanted() const {
  const auto place = wish_ ? wish_ : target_;
  return place && rate_ > 0 ? std::optional(beginOf(*place)) : place;
}

MpvOrder MpvSeeks::next(double shown) {
  if (onItsWay_) return {};
  if (wish_) {
    target_ = std::exchange(wish_, std::nullopt);
    tries_ = 0;
    back_ = false;
  } else if (target_ && !back_) {
    // Once more, from further ahead.
  } else if (back_ || steps_ != 0) {
    stepsOn_ = !back_ && steps_ > 0;
    if (!back_) steps_ += stepsOn_ ? -1 : 1;
    if (!stepsOn_) from_ = shown;
    onItsWay_ = true;
    return {stepsOn_ ? MpvOrder::Kind::StepOn : MpvOrder::Kind::StepBack, 0, kAheads[reach_]};
  } else {
    return {};
  }
  onItsWay_ = true;
  return {MpvOrder::Kind::Seek, askFor(*target_), kAheads[reach_]};
}

// What came is no neighbour of what is wanted: the core began behind the key picture that is needed.
bool MpvSeeks::missed(double shown) const {
  constexpr double kFar = 1;  // seconds, where pictures come as they like
  return shown > *target_ + (rate_ > 0 ? 1.5 / rate_ : kFar);
}

void MpvSeeks::arrived(double shown) {
  onItsWay_ = stepsOn_ = false;
  const auto from = std::exchange(from_, std::nullopt);
  if (wish_) return target_.reset();
  const bool canReach = reach_ + 1 < kAheads.size();
  // A step that did not lead back.
  if (from && !target_ && shown >= *from && *from > kTolerance && canReach) target_ = *from - 2 * kTolerance;
  back_ = false;
  if (!target_) return;
  if (canReach && missed(shown)) {
    ++reach_;
  } else if (constexpr int kMostTries = 3; shown > *target_ + kTolerance && tries_++ < kMostTries) {
    back_ = true;
  } else {
    target_.reset();
  }
}

}  // namespace kvo
