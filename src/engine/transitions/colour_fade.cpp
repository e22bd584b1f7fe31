// Fades through a colour: the first picture goes into it, the second comes out of it.
#include "engine/picture/drawing.h"
#include "engine/transitions/fade.h"
#include "engine/transitions/registry.h"

namespace kvo::engine {
namespace {

PaintTransition through(const media::YuvColour& colour) {
  return [colour](const media::Picture& below, const media::Picture& above, const Moment& moment,
                  media::Canvas& out) {
    drawColour(colour, out);
    if (moment.progress < 0.5) {
      mixPictures(below, out, 2 * moment.progress, out);
    } else {
      mixPictures(out, above, 2 * moment.progress - 1, out);
    }
  };
}

// Through the parameter "color", black without it.
Result<PaintTransition> makeColourFade(const Params& params, int /*width*/, int height) {
  return through(media::yuvOf(media::parseColour(params.word("color")).value_or(media::Colour{}), height));
}

Result<PaintTransition> makeFadeThroughWhite(const Params& /*params*/, int /*width*/, int height) {
  return through(media::yuvOf({255, 255, 255}, height));
}

}  // namespace

const DrawnTransition transitions::ColorFade{makeColourFade};
const DrawnTransition transitions::FadeWhite{makeFadeThroughWhite};

}  // namespace kvo::engine
