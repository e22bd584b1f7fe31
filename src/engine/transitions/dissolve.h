// Dissolve: single pixels change over, in an order that has no pattern.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeDissolve(const Params& params, int width, int height);

}  // namespace kvo::engine
