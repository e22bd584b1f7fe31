// The small documents by which one transition, one clip's effects, or its colours are shown.
#pragma once

#include "editor/compiler/compile.h"

#include <string>

namespace kvo {

struct SampleDocument {
  std::string text;     ///< the document
  TimelineClips clips;  ///< what it corrects of the records
};

struct SampleForm {
  int width = 0;  ///< pixels
  int height = 0;
  bool showsStretch = false;  ///< how a still fits the frame
  bool operator==(const SampleForm&) const = default;
};

// Of the documents that are kept.
inline constexpr SampleForm kTransitionSample{150, 90, false};
inline constexpr SampleForm kEffectSample{140, 80, true};
inline constexpr SampleForm kColourSample{175, 105, false};

/// The movie's shape, as large as fits into `width` x `height` pixels and no larger than the movie; even.
SampleForm shapedLike(const OutputForm& movie, int width, int height);

/// The transition into a clip, at the options' depth and rate: for the first clip its beginning, for a later
/// one the end of the clip before and its own beginning; for a cut the two sides of it. `transitionSeconds`
/// is how long the transition lasts.
SampleDocument transitionSample(const Collection& collection, int clipNo, CompileOptions options,
                                const CompileFacts& facts, double transitionSeconds, const SampleForm& form);

/// A clip with its effects and colours, at the options' rate. Empty for a clip that is not there.
SampleDocument clipSample(const Collection& collection, int clipNo, CompileOptions options,
                          const EffectsTable& effects, const SampleForm& form);

}  // namespace kvo
