// Stretch: pictures are squeezed and drawn out sideways.
#include "engine/picture/drawing.h"
#include "engine/transitions/registry.h"

namespace kvo::engine {
namespace {

Result<PaintTransition> makeStretch(const Params& params, int /*width*/, int /*height*/) {
  const auto style = params.word("stretchstyle");
  const bool hide = style == "hide";  // the second is drawn out over the first, from the left
  const bool push = style == "push";  // and squeezes the first against the right edge
  return PaintTransition([=](const media::Picture& below, const media::Picture& above, const Moment& moment,
                             media::Canvas& out) {
    const double width = out.width();
    const double height = out.height();
    const double shown = width * moment.progress;
    if (push) {
      drawScaled(below, wholeOf(below), {shown, 0, width - shown, height}, out);
      drawScaled(above, wholeOf(above), {0, 0, shown, height}, out);
      return;
    }
    drawAll(below, out);
    drawScaled(above, wholeOf(above), {hide ? 0 : (width - shown) / 2, 0, shown, height}, out);
  });
}

}  // namespace

const DrawnTransition transitions::Stretch{makeStretch};

}  // namespace kvo::engine
