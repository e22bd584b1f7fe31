// Barn: two doors open from the middle to the sides.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeBarn(const Params& params, int width, int height);

}  // namespace kvo::engine
