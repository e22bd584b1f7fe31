// A picture in squares of one colour each.
#pragma once

#include "media/picture.h"

namespace kvo::engine {

/// Every square of `size` pixels, from the middle out, becomes its mean. `size` is 2 or more; chroma follows
/// luma.
void makeBlocks(media::Canvas& out, double size);

}  // namespace kvo::engine
