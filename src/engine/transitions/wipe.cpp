#include "engine/transitions/wipe.h"

#include "engine/transitions/threshold.h"

namespace kvo::engine {

Result<PaintTransition> makeWipe(const Params& /*params*/, int width, int height) {
  return byThresholds(width, height, pixelSoftness(width), [](double x, double /*y*/) { return x; });
}

}  // namespace kvo::engine
