// Checkerboard: the squares of two colours are wiped one after the other.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeCheckerboard(const Params& params, int width, int height);

}  // namespace kvo::engine
