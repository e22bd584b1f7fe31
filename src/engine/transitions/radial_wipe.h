// RadialWipe: a hand goes round. `wipestyle`: clock, wedge (two hands from the top), radial (from a corner).
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeRadialWipe(const Params& params, int width, int height);

}  // namespace kvo::engine
