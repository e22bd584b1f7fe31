// Pixelate: the picture in coarse squares.
#include "engine/effects/registry.h"
#include "engine/picture/blocks.h"

namespace kvo::engine {
namespace {

// The parameter "MaxSquare": the side of a square in pixels; below 2 nothing changes.
DrawEffect makePixelateEffect(const Params& params, int width, int /*height*/) {
  return [params, width](const media::Picture& picture, const EffectMoment& moment) {
    const double size = params.number("maxsquare", moment.time, width / 32.0, 0, 512);
    if (size < 2) return picture;
    auto out = copyOf(picture);
    makeBlocks(out, size);
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::Pixelate{makePixelateEffect};

}  // namespace kvo::engine
