#include "engine/effects/pixelate.h"

#include "engine/picture/blocks.h"

namespace kvo::engine {

DrawEffect makePixelateEffect(const Params& params, int width, int /*height*/) {
  return [params, width](const media::Picture& picture, const EffectMoment& moment) {
    const double size = params.number("maxsquare", moment.time, width / 32.0, 0, 512);
    if (size < 2) return picture;
    auto out = copyOf(picture);
    if (out) makeBlocks(out, size);
    return out;
  };
}

}  // namespace kvo::engine
