// Slide: whole pictures move aside, in bands that go opposite ways.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

Result<PaintTransition> makeSlide(const Params& params, int width, int height);

}  // namespace kvo::engine
