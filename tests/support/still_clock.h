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
  void pause(int milliseconds) const override { pauses.push_back(milliseconds); }
};

}  // namespace kvo::test
