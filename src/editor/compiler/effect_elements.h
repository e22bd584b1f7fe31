// The <effect> elements of a clip: the switches of its word, and the adjustment of its colours.
#pragma once

#include "editor/compiler/compilation.h"
#include "editor/compiler/keyframes.h"

#include <string>

namespace kvo {

/// The elements of the switches that are on in `effectWord`, for the clip, from `start` on. `stop` becomes
/// its number plus 14: effects reach past the clip's end. Leaves both texts alone while KVO2.RenderEffects is
/// off.
void CreateBasicImageStringFromEffectWord(const Compilation& c, const KeyframeIndex& keyframes, int clipNo,
                                          const std::string& effectWord, const std::string& start,
                                          std::string& stop, std::string& result);

/// The elements that tint and adjust the clip by its own levels; empty when they change nothing, and while
/// KVO2.RenderEffects is off.
std::string AddColorContrastAdjust(const Compilation& c, int clipNo, const std::string& start);

}  // namespace kvo
