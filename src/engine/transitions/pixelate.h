// Pixelate: the pictures fall apart into ever larger squares, change over, and come together again.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makePixelate(const Params& params, int width, int height);

}  // namespace kvo::engine
