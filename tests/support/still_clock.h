// A clock that stands still.
#pragma once

#include "ports/clock.h"

#include <vector>

namespace kvo::test {

class StillClock : public Clock {
 public:
  LocalTime time{2026, 3, 7, 14, 5, 9};
  mutable std::vector<int> pauses;  // milliseconds
  [[nodiscard]] LocalTime now() const override { return time; }
  /// Seconds of one day.
  [[nodiscard]] LocalTime at(std::int64_t seconds) const override {
    const auto second = static_cast<int>(seconds);
    return {2026, 3, 6, second / 3600, second / 60 % 60, static_cast<double>(second % 60)};
  }
  void pause(int milliseconds) const override { pauses.push_back(milliseconds); }
};

}  // namespace kvo::test
