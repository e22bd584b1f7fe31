// Brings the movie's sound, 44.1 kHz stereo, to the rate and channels that an encoder is to have.
#pragma once

#include "base/result.h"

#include <memory>
#include <span>
#include <vector>

namespace kvo::media {

class SoundShape {
 public:
  /// Fails where there is no way to convert it.
  static Result<SoundShape> open(int sampleRate, int channels);

  SoundShape(SoundShape&&) noexcept;
  SoundShape& operator=(SoundShape&&) noexcept;
  ~SoundShape();

  /// Adds what has become of `samples` (left, right, left, ...) to `out`, channel by channel in turn. Some of
  /// it is held back for what comes next; without samples all of it comes out. Throws std::bad_alloc.
  void convert(std::span<const float> samples, std::vector<float>& out);

 private:
  struct State;
  explicit SoundShape(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::media
