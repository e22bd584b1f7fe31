// The small documents by which one transition, one clip's effects, or its colours are shown.
#pragma once

#include "editor/compiler/compile.h"

#include <string>

namespace kvo {

struct SampleDocument {
  std::string text;     ///< the document
  TimelineClips clips;  ///< what it corrects of the records
};

/// The two clips of a transition as they are named to the user: "beach.avi -->  hills.avi".
std::string transitionClipsText(const Collection& collection, int clipNo);

/// The transition into a clip, at 150 x 90 and the options' depth and rate: for the first clip its beginning,
/// for a later one the end of the clip before and its own beginning; for a cut the two sides of it.
/// `sliderSeconds` is how long the transition lasts.
SampleDocument transitionSample(const Collection& collection, int clipNo, CompileOptions options,
                                const CompileFacts& facts, double sliderSeconds);

struct SampleForm {
  int width = 0;  ///< pixels
  int height = 0;
  bool showsStretch = false;  ///< how a still fits the frame
};

inline constexpr SampleForm kEffectSample{140, 80, true};
inline constexpr SampleForm kColourSample{175, 105, false};

/// A clip with its effects and colours, at the options' rate. Empty for a clip that is not there.
SampleDocument clipSample(const Collection& collection, int clipNo, CompileOptions options,
                          const EffectsTable& effects, const SampleForm& form);

}  // namespace kvo
