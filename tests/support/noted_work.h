// A desktop that notes what it is asked for.
#pragma once

#include "ports/long_work.h"

#include <string>

namespace kvo::test {

class NotedWork : public LongWork {
 public:
  std::string notes;
  void keepAwake(const std::string& /*why*/) override { notes += "awake "; }
  void letSleep() override { notes += "asleep "; }
  void tell(const std::string& /*title*/, const std::string& text) override { notes += "[" + text + "] "; }
};

}  // namespace kvo::test
