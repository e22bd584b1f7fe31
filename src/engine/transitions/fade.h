// Fade: the upper picture comes in over the lower by even mixing.
#pragma once

#include "media/picture.h"

namespace kvo::engine {

void drawFade(const media::Picture& below, const media::Picture& above, double progress, media::Picture& out);

}  // namespace kvo::engine
