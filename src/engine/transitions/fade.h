// The mix of two pictures, for all that fades.
#pragma once

#include "media/picture.h"

namespace kvo::engine {

/// out = below + (above - below) * share; all of one size and kind. `out` may be one of the two.
void mixPictures(const media::Planes& below, const media::Planes& above, double share, media::Canvas& out);

}  // namespace kvo::engine
