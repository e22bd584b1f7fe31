// Alpha: how much of the picture is seen, evenly or fading outwards.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The parameters "Opacity" and "FinishOpacity" (percent) and "Style": 0 the same everywhere, 1 from left to
/// right, 2 from the middle outwards in circles, 3 in rectangles.
DrawEffect makeAlpha(const Params& params, int width, int height);

}  // namespace kvo::engine
