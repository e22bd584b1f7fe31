// Stretch: pictures are squeezed and drawn out sideways.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeStretch(const Params& params, int width, int height);

}  // namespace kvo::engine
