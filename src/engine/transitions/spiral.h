// Spiral: a square path runs from the rim to the middle.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

PaintTransition makeSpiral(const TransitionParams& params, int width, int height);

}  // namespace kvo::engine
