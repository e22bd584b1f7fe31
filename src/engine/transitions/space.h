// Transitions in space: particles that fly away, and pictures that turn, roll, spin and curl. The parameter
// "InternalName" says which.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeSpace(const Params& params, int width, int height);

}  // namespace kvo::engine
