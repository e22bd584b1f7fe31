// The sound of a timeline: every clip that sounds, by its envelopes, added and held within full scale.
#pragma once

#include "base/result.h"
#include "engine/document/active_set.h"
#include "engine/document/timeline.h"
#include "engine/sound/clip_sound.h"
#include "engine/sound/limiter.h"
#include "media/damage.h"

#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace kvo::engine {

class Mixer {
 public:
  /// Begins at timeline sample `from` (44.1 kHz). `timeline` outlives the mixer, and so does `damage`, which
  /// is told what cannot be decoded.
  Mixer(const Timeline& timeline, std::int64_t from, media::DamageList* damage = nullptr);

  /// Fills `samples` (stereo) on from where the last read ended. Files are open only while they sound.
  Outcome read(std::span<float> samples);

 private:
  Outcome mixBlock();
  Outcome addClip(std::size_t clip);

  const Timeline& timeline_;
  media::DamageList* damage_;
  ActiveSet clips_;
  std::int64_t position_;  // timeline sample that the next block begins with
  std::map<std::size_t, ClipSound> open_;
  Limiter limiter_;
  std::vector<float> block_;
  std::vector<float> clipBlock_;
  std::vector<float> ready_;
};

}  // namespace kvo::engine
