// Pixelate: the pictures fall apart into ever larger squares, change over, and come together again.
#include "engine/picture/blocks.h"
#include "engine/transitions/fade.h"
#include "engine/transitions/registry.h"

#include <algorithm>

namespace kvo::engine {
namespace {

Result<PaintTransition> makePixelate(const Params& params, int width, int /*height*/) {
  const double largest = params.number("maxsquare", 0, width / 12.0, 2, 512);
  return PaintTransition([=](const media::Picture& below, const media::Picture& above, const Moment& moment,
                             media::Canvas& out) {
    // The change-over lies in the middle half, where the squares are large.
    const double share = std::clamp(moment.progress * 2 - 0.5, 0.0, 1.0);
    const double size = 1 + (largest - 1) * (1 - std::abs(moment.progress * 2 - 1));
    mixPictures(below, above, share, out);
    if (size >= 2) makeBlocks(out, size);
  });
}

}  // namespace

const DrawnTransition transitions::Pixelate{makePixelate};

}  // namespace kvo::engine
