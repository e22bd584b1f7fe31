// The port to other programs: start one with arguments that no shell ever sees, read what it prints, end it.
#pragma once

#include "base/result.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct ProcessEnd {
  int exitCode = 0;    ///< 128 + signal number when a signal ended it
  bool ended = false;  ///< true when it was ended by this side before it was done
};

class Processes {
 public:
  Processes() = default;
  Processes(const Processes&) = delete;
  Processes& operator=(const Processes&) = delete;
  virtual ~Processes() = default;

  /// Runs `program` to its end. `line` hears each line of its standard output; standard error is shared.
  /// `stop` is asked at least ten times a second. A true answer ends the process: it is asked to end, and
  /// killed when it has not a second later.
  virtual Result<ProcessEnd> run(const std::string& program, const std::vector<std::string>& arguments,
                                 const std::function<void(std::string_view)>& line,
                                 const std::function<bool()>& stop) = 0;
};

}  // namespace kvo
