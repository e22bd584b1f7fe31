// The sound of a media file as 44.1 kHz stereo float samples, from any time on.
#pragma once

#include "base/result.h"
#include "media/damage.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace kvo::media {

inline constexpr int kSampleRate = 44100;
inline constexpr int kChannels = 2;

class AudioReader {
 public:
  /// Fails with a line that names the file: missing, no sound in it, no decoder. `damage`, which outlives
  /// the reader, is told of what cannot be decoded between the samples that are read.
  static Result<AudioReader> open(const std::string& path, DamageList* damage = nullptr);

  AudioReader(AudioReader&&) noexcept;
  AudioReader& operator=(AudioReader&&) noexcept;
  ~AudioReader();

  /// The next read begins at `sample`, counted at 44.1 kHz from the file's first picture, or from its first
  /// sound where it has no picture.
  Outcome seek(std::int64_t sample);

  /// Fills `samples` (left, right, left, ...) on from where the last read ended. Gaps and what lies behind
  /// the end are silence.
  Outcome read(std::span<float> samples);

 private:
  struct State;
  explicit AudioReader(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::media
