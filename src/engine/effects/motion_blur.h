// Motion blur: everything drawn out in one direction.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The parameters "Strength" (pixels), "Direction" (degrees, clockwise from up), and "Add": the sharp picture
/// shows through.
DrawEffect makeMotionBlur(const Params& params, int width, int height);

}  // namespace kvo::engine
