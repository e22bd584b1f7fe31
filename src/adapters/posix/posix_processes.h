// Processes by posix_spawn; no shell takes part.
#pragma once

#include "ports/processes.h"

namespace kvo {

class PosixProcesses : public Processes {
 public:
  Result<ProcessEnd> run(const std::string& program, const std::vector<std::string>& arguments,
                         const std::function<void(std::string_view)>& line,
                         const std::function<bool()>& stop) override;
};

}  // namespace kvo
