// Placing: the upper picture, or a part of it, stands in a rectangle over the lower one. The rectangle may
// move and grow by keyframes: bounces, and picture-in-picture.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

/// The parameters "OffsetX", "OffsetY", "Width", "Height" are the rectangle, "SrcOffsetX" and so on the part
/// of the upper picture, in pixels of the movie; all of it where they are not given.
Result<PaintTransition> makePlacing(const Params& params, int width, int height);

bool placesAll(const Params& params, double time, int width, int height);

}  // namespace kvo::engine
