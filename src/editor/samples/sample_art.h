// What samples show and how they are painted: two clips for a transition, a stretch of one for an effect.
#pragma once

#include "base/result.h"
#include "core/records/collection.h"
#include "core/records/settings.h"
#include "editor/compiler/effects_table.h"
#include "ports/media_contents.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// A place in a file; an empty path is a plain colour.
struct SamplePlace {
  std::string path;
  double seconds = 0;
  int width = 0;  ///< pixels of the sample: the movie's shape
  int height = 0;
  bool operator==(const SamplePlace&) const = default;
};
using SamplePlaces = std::vector<SamplePlace>;

/// The picture of a place, in the size of a sample. The reference holds until the places are others.
using GroundPicture = std::function<const FramePicture&(std::size_t place)>;
/// Paints one of the pictures of a sample.
using PaintStep = std::function<FramePicture(int step)>;

struct SampleArt {
  /// What there is to see of the collection now. Called where the collection is written.
  std::function<SamplePlaces()> places;
  /// Makes ready to paint a sample; fails for a name that is none. Called on another thread.
  std::function<Result<PaintStep>(std::string_view name, const GroundPicture& ground)> prepare;
};

/// From the clip ahead of the one in hand into that one.
SampleArt transitionArt(const Collection& collection, const KVO2& settings);

/// Two seconds of the clip in hand, with an effect as it is when it is switched on. What `effects` say holds
/// from the time when a clip is taken in hand.
SampleArt effectArt(const Collection& collection, const KVO2& settings, const EffectsTable& effects);

}  // namespace kvo
