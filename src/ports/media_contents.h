// The port to what a media file holds: the kinds of its streams, size, rate and length, and a frame of it.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvo {

struct StreamFacts {
  bool hasVideo = false;  ///< moving or still picture
  bool hasAudio = false;
  bool isStill = false;  ///< a single picture without a length
  int width = 0;         ///< pixels, as coded, and turned upright
  int height = 0;
  double frameRate = 0;      ///< frames a second, the average of a variable rate; 0 when there is none
  double steadyRate = 0;     ///< the exact rate of frames that come at a constant one; else 0
  int sampleRate = 0;        ///< of the sound, samples a second
  int channels = 0;          ///< of the sound; 0 when there is none
  std::string codec{};       ///< "MPEG-1 video": the picture's, or the sound's where there is none
  double wholeDuration = 0;  ///< seconds until sound and picture have both ended; 0 as below
  double duration =
      0;  ///< seconds, of the picture where there is one; 0 for a still or when the file does not tell
};

/// Rows from the top down without gaps; a pixel is blue, green, red.
struct FramePicture {
  int width = 0;  ///< pixels
  int height = 0;
  std::vector<std::uint8_t> bgr;
};

class MediaContents {
 public:
  MediaContents() = default;
  MediaContents(const MediaContents&) = delete;
  MediaContents& operator=(const MediaContents&) = delete;
  virtual ~MediaContents() = default;

  /// From any thread. Fails with a line that names the file when it is not there or is no media file.
  virtual Result<StreamFacts> facts(const std::string& path) = 0;

  /// What the file shows at `seconds`, in the middle of a black picture of `width` x `height` pixels (at
  /// least 2, odd ones made even), as large as fits there with its shape kept. From any thread. Fails with a
  /// line that names the file when it has no picture, or none so late.
  virtual Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) = 0;
};

}  // namespace kvo
