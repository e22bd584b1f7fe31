// Temporary folders under TMPDIR or /tmp, named by the process that they belong to and locked by it. One
// belongs to a process that has ended when no process of its number lives and nobody holds its lock.
#pragma once

#include "ports/temporary_folders.h"

namespace kvo {

class PosixTemporaryFolders : public TemporaryFolders {
 public:
  Result<std::unique_ptr<TemporaryFolder>> make() override;
  void sweep() override;
};

}  // namespace kvo
