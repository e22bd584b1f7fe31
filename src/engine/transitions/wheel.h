// Wheel: `spokes` hands go round at once.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeWheel(const Params& params, int width, int height);

}  // namespace kvo::engine
