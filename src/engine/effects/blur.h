// Blur: everything out of focus.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The parameter "PixelRadius", 0 to 100 pixels.
DrawEffect makeBlur(const Params& params, int width, int height);

}  // namespace kvo::engine
