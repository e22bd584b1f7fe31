// Roll down: the second picture comes down over the first like a blind.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeRollDown(const Params& params, int width, int height);

}  // namespace kvo::engine
