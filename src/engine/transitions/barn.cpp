// Barn: two doors open from the middle to the sides.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <cmath>

namespace kvo::engine {
namespace {

Result<PaintTransition> makeBarn(const Params& /*params*/, int width, int height) {
  return byThresholds(width, height, pixelSoftness(width / 2),
                      [](double x, double /*y*/) { return std::fabs(x - 0.5) * 2; });
}

}  // namespace

const DrawnTransition transitions::Barn{makeBarn};

}  // namespace kvo::engine
