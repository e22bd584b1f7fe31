// Wipe Normal: an edge moves from the left to the right.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeWipe(const Params& params, int width, int height);

}  // namespace kvo::engine
