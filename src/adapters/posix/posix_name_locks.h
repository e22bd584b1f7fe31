// Names held by flock; the making of a file by a socket whose name the kernel alone knows.
#pragma once

#include "ports/name_locks.h"

namespace kvo {

class PosixNameLocks : public NameLocks {
 public:
  Result<std::unique_ptr<FileLock>> tryLock(const std::string& path) override;
  Result<std::unique_ptr<FileLock>> tryMaking(const std::string& path) override;
};

}  // namespace kvo
