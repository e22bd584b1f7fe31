// Writes encoded pictures, and sound that it encodes, into a movie or sound file of each kind: AVI with an
// OpenDML index beyond 1 GB, WAV as RF64 beyond 4 GB, MP4 with its index in front.
#pragma once

#include "base/result.h"
#include "media/picture.h"
#include "media/video_encoder.h"
#include "ports/files.h"
#include "vocabulary/movie_files.h"

#include <memory>
#include <optional>
#include <span>
#include <string>

namespace kvo::media {

using Container = OutputKind;

/// Of sound that is encoded; sound of a WAV or AVI is always 44.1 kHz stereo. What is 0 is as the kind of
/// file has it.
struct SoundFormat {
  int sampleRate = 0;
  int channels = 2;
  int bitRate = 0;  ///< a second
};

/// The encoder of Windows Media Audio goes no lower.
inline constexpr int kLeastSoundBits = 24000;

struct MovieFormat {
  Container container = Container::Avi;
  std::optional<VideoFormat> video;
  bool audio = true;  ///< as the kind of file has it
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
