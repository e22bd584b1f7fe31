// Sound through SDL: PipeWire, PulseAudio or ALSA, whichever the system has.
#pragma once

#include "ports/sound_output.h"

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
  std::uint32_t device_ = 0;
};

}  // namespace kvo
