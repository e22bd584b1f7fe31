// Zigzag: rows of blocks are filled from the top, forth and back.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

PaintTransition makeZigzag(const TransitionParams& params, int width, int height);

}  // namespace kvo::engine
