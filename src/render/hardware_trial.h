// Which encoder of a device works here. Only a trial tells, and a driver may hang or crash in it: each is
// made by a process of its own, which is let go of when it does not answer. It is asked once.
#pragma once

#include "ports/event_loop.h"
#include "ports/processes.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

struct FoundHardware {
  std::string encoder;  ///< FFmpeg's name of the first that has encoded a picture; empty for none
  std::string why;      ///< why none has: a line
};

class HardwareTrial {
 public:
  static constexpr int kPatience = 5000;  ///< milliseconds that one may take

  struct Ports {
    Processes& processes;
    EventLoop& loop;
    std::string engine;                 ///< path of its program
    std::vector<std::string> encoders;  ///< their names, the one that is tried first in front
  };
  /// `known` is called once, on the loop or by begin(), when all is known.
  HardwareTrial(Ports ports, std::function<void()> known);

  /// From the second time on nothing happens.
  void begin();

  /// Nothing while it is not known.
  [[nodiscard]] const std::optional<FoundHardware>& found() const { return found_; }

 private:
  void tryNext();
  void hearEnd(int exitCode);
  void fail(const std::string& why);

  Ports ports_;
  std::function<void()> known_;
  std::unique_ptr<Timer> patience_;
  std::size_t next_ = 0;  // of the encoders
  bool hasBegun_ = false;
  std::string said_;  // by the one that is tried
  std::string why_;
  std::optional<FoundHardware> found_;
  std::unique_ptr<Process> process_;
};

}  // namespace kvo
