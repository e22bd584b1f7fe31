// How the pictures of a clip are counted: from 0, in the order of showing. Here the player's positions go
// from frames to seconds and back. What goes by a clip's record goes by its average rate.
#pragma once

#include "base/frame_rate.h"

#include <optional>
#include <vector>

namespace kvo {

class FrameCount {
 public:
  /// Of nothing: all is 0.
  FrameCount() = default;
  /// Of pictures, so many a second.
  static FrameCount ofPictures(double perSecond);
  /// Of sound alone, which is counted in seconds.
  static FrameCount ofSound();
  /// Of pictures that begin at these seconds, ascending, the last of which ends at `end`. There is at least
  /// one.
  static FrameCount ofBegins(std::vector<double> begins, double end);

  /// Pictures a second, on the average; 1 for sound, 0 of nothing.
  [[nodiscard]] double rate() const { return perSecond_; }
  /// The number of the picture that stands at `seconds`.
  [[nodiscard]] double frameAt(double seconds) const;
  /// When that picture begins, where that is known exactly; else `seconds`.
  [[nodiscard]] double beginAt(double seconds) const;
  /// A length, or an end, in frames: to the nearest.
  [[nodiscard]] double framesIn(double seconds) const;
  /// When picture `frame` begins.
  [[nodiscard]] double secondsAt(double frame) const;

 private:
  double perSecond_ = 0;
  std::optional<FrameRate> pictures_;  // nothing: of sound, or by what follows
  std::vector<double> begins_;         // of each picture, and the end of the last
};

}  // namespace kvo
