// The port to folders for files that are only needed for a while.
#pragma once

#include "base/result.h"

#include <memory>
#include <string>

namespace kvo {

/// A folder of this process's own that is gone, with all that is in it, with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() = default;
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  virtual ~TemporaryFolder() = default;

  /// Without a separator at its end.
  [[nodiscard]] virtual const std::string& path() const = 0;
};

class TemporaryFolders {
 public:
  TemporaryFolders() = default;
  TemporaryFolders(const TemporaryFolders&) = delete;
  TemporaryFolders& operator=(const TemporaryFolders&) = delete;
  virtual ~TemporaryFolders() = default;

  virtual Result<std::unique_ptr<TemporaryFolder>> make() = 0;

  /// Removes the folders of this user's processes that have ended without doing so.
  virtual void sweep() = 0;
};

}  // namespace kvo
