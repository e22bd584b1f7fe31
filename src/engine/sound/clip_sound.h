// The sound of one clip as it stands in the timeline: read from its file, stretched to the clip's speed with
// its pitch kept.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "media/damage.h"

#include <cstdint>
#include <memory>
#include <span>

namespace kvo::engine {

class ClipSound {
 public:
  /// Opens the clip's file; the first read begins `offset` samples behind the clip's start. `damage`, which
  /// outlives the sound, is told what cannot be decoded.
  static Result<ClipSound> open(const Clip& clip, std::int64_t offset, media::DamageList* damage = nullptr);

  ClipSound(ClipSound&&) noexcept;
  ClipSound& operator=(ClipSound&&) noexcept;
  ~ClipSound();

  /// Fills `samples` (stereo, 44.1 kHz); silence where the file has no more.
  Outcome read(std::span<float> samples);

 private:
  struct State;
  explicit ClipSound(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace kvo::engine
