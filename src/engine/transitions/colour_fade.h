// Fades through a colour: the first picture goes into it, the second comes out of it.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

/// Through the parameter "color", black without it.
Result<PaintTransition> makeColourFade(const Params& params, int width, int height);
Result<PaintTransition> makeFadeThroughWhite(const Params& params, int width, int height);

}  // namespace kvo::engine
