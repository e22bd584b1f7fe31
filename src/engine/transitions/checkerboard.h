// Checkerboard: the squares of two colours are wiped one after the other.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

PaintTransition makeCheckerboard(const TransitionParams& params, int width, int height);

}  // namespace kvo::engine
