// Blinds: slats turn over together. `bands` slats, moving in a `direction`.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeBlinds(const Params& params, int width, int height);

}  // namespace kvo::engine
