// The <effect> elements of a clip: the switches of its word, and the adjustment of its colours.
#pragma once

#include "editor/compiler/compile_options.h"
#include "editor/compiler/effects_table.h"
#include "editor/compiler/keyframes.h"

#include <string>

namespace kvo {

/// What the effects of a compile are made of; all of it outlives the compile.
struct EffectSources {
  const EffectsTable& table;
  const KeyframeIndex& keyframes;
  const CompileOptions& options;
};

/// The elements of the switches that are on in the clip's EffectWord, from 0 until 14 seconds past `stop`.
/// Empty where the options leave effects out.
std::string CreateBasicImageStringFromEffectWord(const EffectSources& sources, const TimelineClip& clip,
                                                 double stop);

/// The elements that tint and adjust the clip by its own levels; empty when they change nothing, and where
/// the options leave effects out.
std::string AddColorContrastAdjust(const CompileOptions& options, const TimelineClip& clip);

/// Both, as the lines behind a clip's tag: those of the switches where any is on, and that of the colours,
/// which stands even when it has nothing to say.
std::string effectLines(const EffectSources& sources, const TimelineClip& clip, double stop);

}  // namespace kvo
