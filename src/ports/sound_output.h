// The port to the loudspeakers.
#pragma once

#include "base/result.h"

#include <span>

namespace kvo {

class SoundOutput {
 public:
  SoundOutput() = default;
  SoundOutput(const SoundOutput&) = delete;
  SoundOutput& operator=(const SoundOutput&) = delete;
  virtual ~SoundOutput() = default;

  /// Opens the device, standing still. Fails with a line on why there is no sound.
  virtual Outcome open() = 0;

  /// Puts stereo samples (left and right in turn, 44.1 kHz, full scale 1) behind those that wait.
  virtual void queue(std::span<const float> samples) = 0;

  /// Seconds of sound that were queued and have not been heard.
  [[nodiscard]] virtual double waiting() const = 0;

  /// Drops what waits.
  virtual void clear() = 0;

  virtual void run() = 0;
  virtual void hold() = 0;
};

}  // namespace kvo
