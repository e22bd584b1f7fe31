// Sound through SDL: PipeWire, PulseAudio or ALSA, whichever the system has.
#pragma once

#include "ports/sound_output.h"

#include <chrono>
#include <cstdint>

namespace kvo {

class SdlSoundOutput : public SoundOutput {
 public:
  ~SdlSoundOutput() override;

  Outcome open() override;
  void queue(std::span<const float> samples) override;
  [[nodiscard]] double waiting() const override;
  void clear() override;
  void run() override;
  void hold() override;

 private:
  using Clock = std::chrono::steady_clock;

  std::uint32_t device_ = 0;
  bool runs_ = false;
  double queued_ = 0;                  // seconds since the sound was cleared
  mutable double heard_ = 0;           // of them
  mutable Clock::time_point asked_{};  // when it was reckoned
};

}  // namespace kvo
