#include "base/frame_rate.h"

#include <array>
#include <cmath>

namespace kvo {
namespace {

constexpr double kTolerance = 0.01;  // frames

// Television with colour as in America runs slower than these by 1000 to 1001 (SMPTE 170M, SMPTE ST 2036).
constexpr std::array<std::int32_t, 8> kSlowed = {12, 15, 24, 30, 48, 60, 120, 240};
constexpr double kNear = 0.01;  // frames a second; 29.98 and 59.95 are meant so, too

constexpr double kLeast = 0.001;
constexpr double kMost = 60000;

// The simplest ratio that is `value` to seven digits, by its continued fraction.
FrameRate simplest(double value) {
  constexpr double kSame = 5e-8;
  constexpr double kMaxTerm = 1 << 30;
  double rest = value;
  double before = 1;
  double beforeBelow = 0;
  double above = std::floor(value);
  double below = 1;
  while (std::fabs(above / below - value) > kSame * value) {
    rest = 1 / (rest - std::floor(rest));
    const double next = std::floor(rest) * above + before;
    const double nextBelow = std::floor(rest) * below + beforeBelow;
    if (next > kMaxTerm || nextBelow > kMaxTerm) break;
    before = above;
    beforeBelow = below;
    above = next;
    below = nextBelow;
  }
  return {static_cast<std::int32_t>(above), static_cast<std::int32_t>(below)};
}

}  // namespace

std::optional<FrameRate> FrameRate::fromDecimal(double framesPerSecond) {
  if (!(framesPerSecond >= kLeast && framesPerSecond <= kMost)) return std::nullopt;
  for (const auto whole : kSlowed) {
    const FrameRate exact(whole * 1000, 1001);
    const double away = std::fabs(framesPerSecond - exact.perSecond());
    if (away < kNear && away < std::fabs(framesPerSecond - whole)) return exact;
  }
  return simplest(framesPerSecond);
}

std::int64_t FrameRate::unitsAt(std::int64_t frame, std::int32_t unitsPerSecond) const {
  const std::int64_t units = frame * unitsPerSecond * seconds_;
  return (units + frames_ / 2) / frames_;
}

std::int64_t FrameRate::frameFrom(double seconds) const {
  return static_cast<std::int64_t>(std::ceil(seconds * frames_ / seconds_ - kTolerance));
}

std::int64_t FrameRate::frameAt(double seconds) const {
  return static_cast<std::int64_t>(std::floor(seconds * frames_ / seconds_ + kTolerance));
}

}  // namespace kvo
