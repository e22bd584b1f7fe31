// The system's time of day.
#pragma once

#include "ports/clock.h"

namespace kvo {

class PosixClock : public Clock {
 public:
  [[nodiscard]] LocalTime now() const override;
  [[nodiscard]] LocalTime at(std::int64_t seconds) const override;
  void pause(int milliseconds) const override;
};

}  // namespace kvo
