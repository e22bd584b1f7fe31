// Drop shadow: the picture throws a shadow on what lies below it.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The parameters "OffX" and "OffY" (pixels, 0 and 0 change nothing) and "Color" (grey without it). A picture
/// that fills its frame is made smaller, so that there is room for the shadow.
DrawEffect makeDropShadow(const Params& params, int width, int height);

}  // namespace kvo::engine
