#include "engine/transitions/roll_down.h"

#include "engine/picture/drawing.h"

namespace kvo::engine {

Result<PaintTransition> makeRollDown(const Params& /*params*/, int /*width*/, int /*height*/) {
  return PaintTransition([](const media::Picture& below, const media::Picture& above, const Moment& moment,
                            media::Picture& out) {
    drawAll(below, out);
    drawMoved(above, wholeOf(above), 0, -(1 - moment.progress) * out.height(), out);
  });
}

}  // namespace kvo::engine
