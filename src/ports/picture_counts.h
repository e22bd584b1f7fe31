// The port to the count of a file's pictures, where only reading the whole of it tells which is which.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

class PictureCounts {
 public:
  PictureCounts() = default;
  PictureCounts(const PictureCounts&) = delete;
  PictureCounts& operator=(const PictureCounts&) = delete;
  virtual ~PictureCounts() = default;

  /// Heard on the program's thread, for a file that was wanted: the seconds from its first picture at which
  /// each one begins. Not heard where they come at a constant rate, or cannot be told.
  virtual void whenCounted(
      std::function<void(const std::string& path, std::vector<double> begins)> heard) = 0;
  /// Has the pictures of this file counted. Nobody waits for it; the last wish counts.
  virtual void want(const std::string& path) = 0;
};

}  // namespace kvo
