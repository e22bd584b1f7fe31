// A folder of this process's own that is gone with the object.
#pragma once

#include "base/result.h"

#include <string>
#include <utility>

namespace kvo {

class TemporaryFolder {
 public:
  static Result<TemporaryFolder> make();

  /// Removes the folders of this user's processes that have ended without doing so. One belongs to a process
  /// that has ended when no process of its number lives and nobody holds its lock.
  static void sweep();

  TemporaryFolder(TemporaryFolder&& other) noexcept
      : path_(std::exchange(other.path_, {})), lock_(std::exchange(other.lock_, -1)) {}
  TemporaryFolder& operator=(TemporaryFolder&&) = delete;
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  TemporaryFolder(std::string path, int lock) : path_(std::move(path)), lock_(lock) {}
  std::string path_;
  int lock_;  // descriptor of the folder, locked for as long as it is open
};

}  // namespace kvo
