// Zigzag: rows of blocks are filled from the top, forth and back.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeZigzag(const Params& params, int width, int height);

}  // namespace kvo::engine
