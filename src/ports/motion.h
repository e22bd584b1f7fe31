// The port to whether the user has told the desktop that little should move on the screen.
#pragma once

namespace kvo {

class Motion {
 public:
  Motion() = default;
  Motion(const Motion&) = delete;
  Motion& operator=(const Motion&) = delete;
  virtual ~Motion() = default;

  /// False as long as the desktop has not told.
  [[nodiscard]] virtual bool isReduced() = 0;
};

}  // namespace kvo
