#include "adapters/posix/posix_clock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace kvo {

LocalTime PosixClock::now() const {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  auto time = at(now.tv_sec);
  time.second += static_cast<double>(now.tv_nsec) / 1e9;
  return time;
}

LocalTime PosixClock::at(std::int64_t seconds) const {
  tm t{};
  ::localtime_r(&seconds, &t);
  return {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min, static_cast<double>(t.tm_sec)};
}

void PosixClock::pause(int milliseconds) const {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace kvo
