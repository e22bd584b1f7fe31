// Processes by posix_spawn; no shell takes part.
#pragma once

#include "ports/processes.h"

namespace kvo {

class PosixProcesses : public Processes {
 public:
  Result<std::unique_ptr<Process>> start(EventLoop& loop, const ProcessOrder& order,
                                         ProcessHearing hearing) override;
  [[nodiscard]] int ownNumber() const override;
};

}  // namespace kvo
