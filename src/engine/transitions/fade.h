// Fade: the second picture shines through the first, ever more.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

/// out = below + (above - below) * share; all of one size and kind. `out` may be one of the two.
void mixPictures(const media::Picture& below, const media::Picture& above, double share, media::Picture& out);

Result<PaintTransition> makeFade(const Params& params, int width, int height);

}  // namespace kvo::engine
