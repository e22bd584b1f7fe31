// Makes the frames of a movie file from pictures.
#pragma once

#include "base/frame_rate.h"
#include "base/result.h"
#include "media/picture.h"

#include <cstdint>
#include <memory>
#include <string>

struct AVPacket;
struct AVCodecParameters;

namespace kvo::media {

enum class VideoCodec {
  Raw,    ///< uncompressed, bottom row first, at the bit depth asked for
  Mpeg4,  ///< MPEG-4 part 2
  Wmv2,   ///< Windows Media Video 8
};

struct VideoFormat {
  VideoCodec codec = VideoCodec::Raw;
  int width = 0;  ///< pixels
  int height = 0;
  FrameRate frameRate{};
  int bitDepth = 24;  ///< 16 (5-5-5), 24 or 32; for Raw
  int quantiser = 3;  ///< of each picture, 1 to 31; finer is less
  int bitRate = 0;    ///< bits a second that are aimed at in place of that; 0 for none
};

/// A frame as it stands in a file, shared and not copied.
class EncodedFrame {
 public:
  EncodedFrame() = default;
  explicit EncodedFrame(std::shared_ptr<AVPacket> packet) : packet_(std::move(packet)) {}
  explicit operator bool() const { return packet_ != nullptr; }
  [[nodiscard]] std::size_t bytes() const;
  [[nodiscard]] const std::shared_ptr<AVPacket>& packet() const { return packet_; }

 private:
  std::shared_ptr<AVPacket> packet_;
};

class VideoEncoder {
 public:
  /// Fails for sizes that the codec does not take. `headerInFile` keeps what describes the stream out of the
  /// frames, for files that have a place for it. `name` is for error lines.
  static Result<VideoEncoder> open(const VideoFormat& format, bool headerInFile, const std::string& name);

  VideoEncoder(VideoEncoder&&) noexcept;
  VideoEncoder& operator=(VideoEncoder&&) noexcept;
  ~VideoEncoder();

  /// The frame that stands at `number` in the movie. The first picture of an encoder is a key frame, and
  /// numbers rise by one, so that segments of a movie can be encoded by encoders of their own. A picture may
  /// be larger than the movie by one row and column, which are cut off; one of another size is brought to
  /// the movie's, its shape kept by black bars. Fails when memory is short.
  Result<EncodedFrame> encode(const Picture& picture, std::int64_t number);

  /// What a file says of the stream.
  [[nodiscard]] Outcome describe(AVCodecParameters& parameters) const;

 private:
  struct State;
  explicit VideoEncoder(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::media
