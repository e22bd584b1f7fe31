// Chroma: one colour of the picture becomes transparent.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The parameters "Color" (green without it) and "Tolerance" (percent, 20 without it; 0 leaves all as it is).
DrawEffect makeChroma(const Params& params, int width, int height);

}  // namespace kvo::engine
