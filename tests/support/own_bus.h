// A session bus of the test's own, which is that of all programs that the test starts.
#pragma once

#include "support/real_world.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

#include <gtest/gtest.h>

namespace kvo::test {

class OwnBus {
 public:
  OwnBus() {
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    daemon_ = startProgram({"dbus-daemon", "--session", "--nofork", "--print-address=1"}, pipe[1], nowhere);
    ::close(nowhere);
    ::close(pipe[1]);
    for (char c = 0; ::read(pipe[0], &c, 1) == 1 && c != '\n';) address_ += c;
    ::close(pipe[0]);
    EXPECT_FALSE(address_.empty()) << "no bus";
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address_.c_str(), 1);
  }
  OwnBus(const OwnBus&) = delete;
  OwnBus& operator=(const OwnBus&) = delete;
  ~OwnBus() {
    ::kill(daemon_, SIGTERM);
    endOf(daemon_);
  }

  [[nodiscard]] const std::string& address() const { return address_; }

 private:
  std::string address_;
  int daemon_ = 0;
};

}  // namespace kvo::test
