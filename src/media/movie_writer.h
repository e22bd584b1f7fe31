// Encodes pictures and sound into a movie or sound file: AVI (with an OpenDML index beyond 1 GB), WAV (RIFF,
// RF64 beyond 4 GB), WMV and WMA (ASF).
#pragma once

#include "base/result.h"
#include "media/picture.h"
#include "platform/files.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvo::media {

enum class Container { Avi, Wav, Wmv, Wma };

/// By the extension of a file name in any case; nothing for another one.
std::optional<Container> containerOf(std::string_view path);

enum class VideoCodec {
  Raw,    ///< uncompressed, bottom row first, at the bit depth asked for
  Mpeg4,  ///< MPEG-4 part 2, constant quantiser 3
  Wmv2,   ///< Windows Media Video 8, constant quantiser 3
};

struct VideoFormat {
  VideoCodec codec = VideoCodec::Raw;
  int width = 0;  ///< pixels
  int height = 0;
  double frameRate = 25;
  int bitDepth = 24;  ///< 16 (5-5-5), 24 or 32; for Raw
};

struct MovieFormat {
  Container container = Container::Avi;
  std::optional<VideoFormat> video;
  bool audio = true;  ///< 44.1 kHz stereo: PCM of 16 bits, in ASF Windows Media Audio 2
};

class MovieWriter {
 public:
  /// Begins a movie in `target`, which outlives the writer and is committed by its owner. `name` is for
  /// error lines.
  static Result<MovieWriter> open(Replacement& target, const MovieFormat& format, const std::string& name);

  MovieWriter(MovieWriter&&) noexcept;
  MovieWriter& operator=(MovieWriter&&) noexcept;
  ~MovieWriter();

  /// The next frame. A picture may be larger than the movie by one row and column, which are cut off.
  Outcome writeVideo(const Picture& picture);

  /// The next samples, left and right in turn; full scale is 1.
  Outcome writeAudio(std::span<const float> samples);

  /// Writes what is still held back, and the index.
  Outcome finish();

 private:
  struct State;
  explicit MovieWriter(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::media
