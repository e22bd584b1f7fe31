// The port to the time of day and its passing.
#pragma once

#include <cstdint>

namespace kvo {

struct LocalTime {
  int year = 1970;
  int month = 1;  ///< 1 to 12
  int day = 1;    ///< 1 to 31
  int hour = 0;   ///< 0 to 23
  int minute = 0;
  double second = 0;
};

class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  [[nodiscard]] virtual LocalTime now() const = 0;

  /// The local time at so many seconds since the beginning of 1970.
  [[nodiscard]] virtual LocalTime at(std::int64_t seconds) const = 0;

  /// Lets `milliseconds` pass, a tenth of a second or so: nothing else happens meanwhile.
  virtual void pause(int milliseconds) const = 0;
};

/// Seconds since midnight, with their fraction.
inline double secondsSinceMidnight(const Clock& clock) {
  const auto t = clock.now();
  return t.hour * 3600.0 + t.minute * 60.0 + t.second;
}

}  // namespace kvo
