// The sound of a timeline: every clip that sounds, by its envelopes, added and held within full scale.
#pragma once

#include "base/result.h"
#include "engine/document/active_set.h"
#include "engine/document/timeline.h"
#include "engine/sound/clip_sound.h"
#include "engine/sound/limiter.h"
#include "media/damage.h"

#include <cstdint>
#include <future>
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

  /// Files of clips that sound now, or will this many samples further on, are opened on other threads, so
  /// that the read that comes there need not wait. What goes wrong is told by that read.
  void expect(std::int64_t ahead);

 private:
  Outcome mixBlock();
  Result<ClipSound> opened(std::size_t clip, std::int64_t offset);
  Outcome addClip(std::size_t clip);

  const Timeline& timeline_;
  media::DamageList* damage_;
  ActiveSet clips_;
  std::int64_t position_;  // timeline sample that the next block begins with
  std::map<std::size_t, ClipSound> open_;
  ActiveSet scout_;  // ahead of `clips_`
  std::map<std::size_t, std::future<Result<ClipSound>>> coming_;
  Limiter limiter_;
  std::vector<float> block_;
  std::vector<float> clipBlock_;
  std::vector<float> ready_;
};

}  // namespace kvo::engine
