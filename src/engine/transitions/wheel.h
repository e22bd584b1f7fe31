// Wheel: `spokes` hands go round at once.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

PaintTransition makeWheel(const TransitionParams& params, int width, int height);

}  // namespace kvo::engine
