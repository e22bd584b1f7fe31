// Makes the frames of a movie file from pictures.
#pragma once

#include "base/frame_rate.h"
#include "base/result.h"
#include "media/picture.h"
#include "vocabulary/movie_files.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct AVPacket;
struct AVCodecParameters;

namespace kvo::media {

using kvo::VideoCodec;

class Hardware;

/// A movie whose bit rate has to be met is encoded twice; the first time only notes come of it.
enum class Pass { Only, First, Second };

struct VideoFormat {
  VideoCodec codec = VideoCodec::Raw;
  int width = 0;  ///< pixels
  int height = 0;
  FrameRate frameRate{};
  int bitDepth = 24;  ///< 16 (5-5-5), 24 or 32; for Raw
  int quantiser = 3;  ///< of each picture, 1 to 31; finer is less; of MPEG-4 and Windows Media
  int bitRate = 0;    ///< bits a second that are aimed at in place of that; 0 for none
  int quality = 0;    ///< of H.264, VP9 and AV1 on their own scales, finer is less; 0 for the usual
  int effort = 2;     ///< a place among effortWords()
  int threads = 1;    ///< of an encoder; its frames depend on it
  Pass pass = Pass::Only;
  std::string
      notes{};  ///< file that a first pass leaves for the second, with more of that beginning beside it
  Hardware* hardware = nullptr;  ///< that encodes in place of the software, and outlives the encoder
};

/// A frame as it stands in a file, shared and not copied.
class EncodedFrame {
 public:
  EncodedFrame() = default;
  explicit EncodedFrame(std::shared_ptr<AVPacket> packet) : packet_(std::move(packet)) {}
  explicit operator bool() const { return packet_ != nullptr; }
  [[nodiscard]] std::size_t bytes() const;
  /// Of a movie with a bit rate, in H.264: it is as fine as they get, whatever bits there are. Known where
  /// its encoder has just made it.
  [[nodiscard]] bool isFinest() const;
  [[nodiscard]] const std::shared_ptr<AVPacket>& packet() const { return packet_; }

 private:
  std::shared_ptr<AVPacket> packet_;
};

/// In the order in which they stand in the file.
using EncodedFrames = std::vector<EncodedFrame>;

class VideoEncoder {
 public:
  /// Fails for sizes that the codec does not take, and where FFmpeg has no such encoder. `headerInFile` keeps
  /// what describes the stream out of the frames, for files that have a place for it. `name` is for error
  /// lines.
  static Result<VideoEncoder> open(const VideoFormat& format, bool headerInFile, const std::string& name);

  VideoEncoder(VideoEncoder&&) noexcept;
  VideoEncoder& operator=(VideoEncoder&&) noexcept;
  ~VideoEncoder();

  /// Takes the picture that stands at `number` in the movie, and gives the frames that are ready: codecs that
  /// look ahead hold some back. The first picture of an encoder is a key frame, and numbers rise by one, so
  /// that segments of a movie can be encoded by encoders of their own and laid behind each other. A picture
  /// may be larger than the movie by one row and column, which are cut off; one of another size is brought to
  /// the movie's, its shape kept by black bars. Fails when memory is short.
  Result<EncodedFrames> encode(const Picture& picture, std::int64_t number);

  /// What was held back: as many frames as pictures have come then. Nothing can be encoded behind it.
  Result<EncodedFrames> finish();

  /// What a file says of the stream.
  [[nodiscard]] Outcome describe(AVCodecParameters& parameters) const;

 private:
  struct State;
  explicit VideoEncoder(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::media
