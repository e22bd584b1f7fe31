// The small documents by which one transition, one clip's effects, or its colours are shown.
#pragma once

#include "editor/compiler/compilation.h"

#include <string>

namespace kvo {

/// The two clips of a transition as they are named to the user: "beach.avi -->  hills.avi".
std::string transitionClipsText(const Compilation& c, int clipNo);

/// The transition into a clip, at 150 x 90: for the first clip its beginning, for a later one the end of the
/// clip before and its own beginning; for a cut the two sides of it.
std::string Previewtransition(const Compilation& c, int clipNo);

/// A clip with its effects and colours, at 140 x 80. Empty for a clip that is not there.
std::string PreviewEffect(const Compilation& c, int clipNo);

/// The same at 175 x 105.
std::string PreviewColourAdjust(const Compilation& c, int clipNo);

}  // namespace kvo
