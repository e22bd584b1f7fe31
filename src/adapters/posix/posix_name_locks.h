// Names held by flock.
#pragma once

#include "ports/name_locks.h"

namespace kvo {

class PosixNameLocks : public NameLocks {
 public:
  Result<std::unique_ptr<FileLock>> tryLock(const std::string& path) override;
};

}  // namespace kvo
