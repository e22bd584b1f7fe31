// Curtains: the first picture is drawn aside in two halves.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeCurtains(const Params& params, int width, int height);

}  // namespace kvo::engine
