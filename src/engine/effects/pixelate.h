// Pixelate: the picture in coarse squares.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The parameter "MaxSquare": the side of a square in pixels; below 2 nothing changes.
DrawEffect makePixelateEffect(const Params& params, int width, int height);

}  // namespace kvo::engine
