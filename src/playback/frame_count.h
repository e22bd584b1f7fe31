// How the pictures of a clip are counted: from 0, in the order of showing. Here, and nowhere else, frames and
// seconds of a clip in the player go into each other.
#pragma once

#include "base/frame_rate.h"

#include <optional>

namespace kvo {

class FrameCount {
 public:
  /// Of nothing: all is 0.
  FrameCount() = default;
  /// Of pictures, so many a second.
  static FrameCount ofPictures(double perSecond);
  /// Of sound alone, which is counted in seconds.
  static FrameCount ofSound();

  /// Pictures a second; 1 for sound, 0 of nothing.
  [[nodiscard]] double rate() const { return perSecond_; }
  /// The number of the picture that begins nearest to `seconds`.
  [[nodiscard]] double frameAt(double seconds) const;
  /// When picture `frame` begins.
  [[nodiscard]] double secondsAt(double frame) const;

 private:
  double perSecond_ = 0;
  std::optional<FrameRate> pictures_;  // nothing: of sound
};

}  // namespace kvo
