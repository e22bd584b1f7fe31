// Inset: the second picture grows out of a corner.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeInset(const Params& params, int width, int height);

}  // namespace kvo::engine
