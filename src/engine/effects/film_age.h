// Film age: an old film: faded to brown, flickering, with scratches, dust and grain.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

/// The parameter "age", 0 (new) to 100.
DrawEffect makeFilmAge(const Params& params, int width, int height);

}  // namespace kvo::engine
