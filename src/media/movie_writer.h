// Writes encoded pictures, and sound that it encodes, into a movie or sound file: AVI (with an OpenDML index
// beyond 1 GB), WAV (RIFF, RF64 beyond 4 GB), WMV and WMA (ASF).
#pragma once

#include "base/result.h"
#include "media/picture.h"
#include "media/video_encoder.h"
#include "ports/files.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvo::media {

enum class Container { Avi, Wav, Wmv, Wma };

/// By the extension of a file name in any case; nothing for another one.
std::optional<Container> containerOf(std::string_view path);

/// Of sound that is encoded; sound of a WAV or AVI is always 44.1 kHz stereo.
struct SoundFormat {
  int sampleRate = 44100;
  int channels = 2;
  int bitRate = 0;  ///< a second; 0 for 128000 beside a picture and 192000 without one
};

/// The encoder of Windows Media Audio goes no lower.
inline constexpr int kLeastSoundBits = 24000;

struct MovieFormat {
  Container container = Container::Avi;
  std::optional<VideoFormat> video;
  bool audio = true;  ///< PCM of 16 bits, in ASF Windows Media Audio 2
  SoundFormat sound{};
};

class MovieWriter {
 public:
  /// Begins a movie in `target`, which outlives the writer and is committed by its owner. `name` is for
  /// error lines. Fails when the target cannot be written, or FFmpeg cannot encode such pictures.
  static Result<MovieWriter> open(Replacement& target, const MovieFormat& format, const std::string& name);

  MovieWriter(MovieWriter&&) noexcept;
  MovieWriter& operator=(MovieWriter&&) noexcept;
  ~MovieWriter();

  /// An encoder for the movie's frames, or for a segment of them. Of a movie with pictures only.
  [[nodiscard]] Result<VideoEncoder> newVideoEncoder() const;

  /// The next frame. Fails when the target cannot be written.
  Outcome writeVideo(const EncodedFrame& frame);

  /// The next samples at 44.1 kHz, left and right in turn; full scale is 1. Fails as writeVideo does.
  Outcome writeAudio(std::span<const float> samples);

  /// Writes what is still held back, and the index; nothing can be written behind it. Fails as writeVideo
  /// does.
  Outcome finish();

 private:
  struct State;
  explicit MovieWriter(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::media
