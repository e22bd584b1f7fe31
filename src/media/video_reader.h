// Gives the frame of a video file that is shown at a time. Times run forward cheaply; going back, or far
// ahead, seeks.
#pragma once

#include "base/result.h"
#include "media/picture.h"

#include <memory>
#include <string>

namespace kvo::media {

class VideoReader {
 public:
  /// Fails with a line that names the file: missing, no picture in it, no decoder, 0 x 0 or too large.
  static Result<VideoReader> open(const std::string& path, int threads);

  VideoReader(VideoReader&&) noexcept;
  VideoReader& operator=(VideoReader&&) noexcept;
  ~VideoReader();

  /// The frame shown `seconds` after the file's start: the last one that begins there or before, for a
  /// constant or a variable rate. Before the first frame it is the first; for up to half a second behind the
  /// last it is the last. Fails when the file ends earlier, or breaks.
  Result<SharedFrame> frameAt(double seconds);

  [[nodiscard]] int width() const;
  [[nodiscard]] int height() const;
  /// A single picture, shown at every time.
  [[nodiscard]] bool isStill() const;

 private:
  struct State;
  explicit VideoReader(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::media
