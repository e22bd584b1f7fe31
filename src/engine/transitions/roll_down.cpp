// Roll down: the second picture comes down over the first like a blind.
#include "engine/picture/drawing.h"
#include "engine/transitions/registry.h"

namespace kvo::engine {
namespace {

Result<PaintTransition> makeRollDown(const Params& /*params*/, int /*width*/, int /*height*/) {
  return PaintTransition(
      [](const media::Picture& below, const media::Picture& above, const Moment& moment, media::Canvas& out) {
        drawAll(below, out);
        drawMoved(above, wholeOf(above), 0, -(1 - moment.progress) * out.height(), out);
      });
}

}  // namespace

const DrawnTransition transitions::RollDown{makeRollDown};

}  // namespace kvo::engine
