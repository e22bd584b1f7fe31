// Basic image: mirrored, turned, in greys, as a negative, as an X-ray picture.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The switches "mirror", "invert", "xray", "grayscale", and "rotation" in quarters of a turn, clockwise.
DrawEffect makeBasicImage(const Params& params, int width, int height);

}  // namespace kvo::engine
