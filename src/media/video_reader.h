// Gives the frame of a video file that is shown at a time. Times run forward cheaply; going back, or far
// ahead, seeks.
#pragma once

#include "base/result.h"
#include "media/damage.h"
#include "media/picture.h"

#include <cstddef>
#include <memory>
#include <string>

namespace kvo::media {

class VideoReader {
 public:
  /// Fails with a line that names the file: missing, no picture in it, no decoder, 0 x 0 or too large.
  /// `threads` of the decoder; 0 lets it choose. `damage`, which outlives the reader, is told of what cannot
  /// be decoded between the frames that are asked for.
  static Result<VideoReader> open(const std::string& path, int threads, DamageList* damage = nullptr);

  VideoReader(VideoReader&&) noexcept;
  VideoReader& operator=(VideoReader&&) noexcept;
  ~VideoReader();

  /// The frame shown `seconds` after the first picture: the last one that begins there or before, for a
  /// constant or a variable rate. Before the first frame it is the first; behind the last one it is the last
  /// while the file's sound goes on, and half a second more; a still is shown at every time. What is damaged
  /// is left out: the frame ahead of it stands. Fails when the file ends earlier, or nothing of it can be
  /// decoded.
  Result<SharedFrame> frameAt(double seconds);

  /// Pictures that have gone by stay at hand from now on, the newest of them up to so many bytes: going back
  /// to one decodes nothing.
  void keepPast(std::size_t bytes);

  /// A stretch of the way there, for one who may change his mind: decodes no more than about `most` seconds
  /// beyond the key frame, or beyond where it stands.
  struct Toward {
    SharedFrame frame;  ///< where it has come to
    double left = 0;    ///< seconds to go; 0 when frameAt(seconds) has it at hand
  };
  Result<Toward> frameToward(double seconds, double most);

 private:
  struct State;
  explicit VideoReader(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
  SharedFrame photograph_;  // all of a HEIC or AVIF
};

}  // namespace kvo::media
