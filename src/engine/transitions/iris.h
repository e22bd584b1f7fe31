// Iris: an opening grows from the middle. `irisstyle`: circle, cross, plus, square, star.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeIris(const Params& params, int width, int height);

}  // namespace kvo::engine
