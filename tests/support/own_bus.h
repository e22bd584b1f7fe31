// A session bus of the test's own, which is that of all programs that the test starts.
#pragma once

#include "support/real_world.h"

#include <cstdlib>

namespace kvo::test {

class OwnBus {
 public:
  OwnBus() { ::setenv("DBUS_SESSION_BUS_ADDRESS", address_.c_str(), 1); }
  [[nodiscard]] const std::string& address() const { return address_; }

 private:
  Companion daemon_{{"dbus-daemon", "--session", "--nofork", "--print-address=1"}};
  std::string address_ = daemon_.firstLine();
};

}  // namespace kvo::test
