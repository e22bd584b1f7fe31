// Fade: the upper picture comes in over the lower by even mixing.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

PaintTransition makeFade(const TransitionParams& params, int width, int height);

}  // namespace kvo::engine
