// Fade to black: the clip goes dark over its last two seconds, or its last half if it is short.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

DrawEffect makeFadeToBlack(const Params& params, int width, int height);

}  // namespace kvo::engine
