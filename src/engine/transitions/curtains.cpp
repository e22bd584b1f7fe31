// Curtains: the first picture is drawn aside in two halves.
#include "engine/picture/drawing.h"
#include "engine/transitions/registry.h"

namespace kvo::engine {
namespace {

Result<PaintTransition> makeCurtains(const Params& /*params*/, int /*width*/, int /*height*/) {
  return PaintTransition(
      [](const media::Picture& below, const media::Picture& above, const Moment& moment, media::Canvas& out) {
        const double half = out.width() / 2.0;
        const double height = out.height();
        const double drawn = half * moment.progress;
        drawAll(above, out);
        drawMoved(below, {0, 0, half, height}, -drawn, 0, out);
        drawMoved(below, {half, 0, half, height}, half + drawn, 0, out);
      });
}

}  // namespace

const DrawnTransition transitions::Curtains{makeCurtains};

}  // namespace kvo::engine
