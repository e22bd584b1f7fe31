// Spiral: a square path runs from the rim to the middle.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeSpiral(const Params& params, int width, int height);

}  // namespace kvo::engine
