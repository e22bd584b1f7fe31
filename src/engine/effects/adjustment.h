// The class that adjusts colours (its internal name "Standard") and that eases a picture in or out in space
// ("Simple3D").
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// Standard: "Desaturate", then "Red", "Green", "Blue" and "Cyan", "Magenta", "Yellow" (added to, and taken
/// off, a channel, as shares of it), "Contrast" (0 leaves it), "Gamma" (0 leaves it, 10 doubles it) and
/// "Threshold" (0 to 1: what is darker turns black). Simple3D: as the transition of that name, over the
/// clip's length, with nothing around the picture.
DrawEffect makeAdjustment(const Params& params, int width, int height);

/// Of Simple3D: the picture is somewhere else in each frame.
bool movesInSpace(const Params& params);

}  // namespace kvo::engine
