#include "engine/timeline.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {

double Keyed::at(double time) const {
  double from = 0;
  double held = value;
  for (const auto& key : keys) {
    if (time < key.time) {
      if (!key.linear || key.time <= from) return held;
      return held + (key.value - held) * (time - from) / (key.time - from);
    }
    from = key.time;
    held = key.value;
  }
  return held;
}

double Timeline::length() const {
  double end = 0;
  for (const auto& clip : video) end = std::max(end, clip.stop);
  for (const auto& clip : audio) end = std::max(end, clip.stop);
  return end;
}

std::int64_t Timeline::frameFrom(double seconds) const {
  return static_cast<std::int64_t>(std::ceil(seconds * frameRate - 0.01));
}

}  // namespace kvo::engine
