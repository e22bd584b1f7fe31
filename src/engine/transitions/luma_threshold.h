// Threshold: the light parts of the first picture give way first, the dark ones last.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeLumaThreshold(const Params& params, int width, int height);

}  // namespace kvo::engine
