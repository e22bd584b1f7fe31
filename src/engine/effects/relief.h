// Emboss and engrave: the picture as a grey relief, raised or cut in.
#pragma once

#include "engine/effects/registry.h"

namespace kvo::engine {

DrawEffect makeEmboss(const Params& params, int width, int height);
DrawEffect makeEngrave(const Params& params, int width, int height);

}  // namespace kvo::engine
