// A folder of this process's own that is gone with the object.
#pragma once

#include "base/result.h"

#include <string>
#include <utility>

namespace kvo {

class TemporaryFolder {
 public:
  static Result<TemporaryFolder> make();

  TemporaryFolder(TemporaryFolder&& other) noexcept : path_(std::exchange(other.path_, {})) {}
  TemporaryFolder& operator=(TemporaryFolder&&) = delete;
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  explicit TemporaryFolder(std::string path) : path_(std::move(path)) {}
  std::string path_;
};

}  // namespace kvo
