// The port to names that one process at a time may have.
#pragma once

#include "ports/files.h"

#include <memory>
#include <string>

namespace kvo {

class NameLocks {
 public:
  NameLocks() = default;
  NameLocks(const NameLocks&) = delete;
  NameLocks& operator=(const NameLocks&) = delete;
  virtual ~NameLocks() = default;

  /// As Files::lock, without waiting: null while another has the name, in this process or in another one.
  /// Fails where the file of that name cannot be made. Who holds it may remove the file.
  virtual Result<std::unique_ptr<FileLock>> tryLock(const std::string& path) = 0;

  /// Holds the making of the file `path`, whether it is there or not, among the programs of this user on this
  /// machine: null while another has it. No file stands for that. Fails where its folder is missing.
  virtual Result<std::unique_ptr<FileLock>> tryMaking(const std::string& path) = 0;
};

}  // namespace kvo
