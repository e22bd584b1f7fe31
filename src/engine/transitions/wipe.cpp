// Wipe Normal: an edge moves from the left to the right.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

namespace kvo::engine {
namespace {

Result<PaintTransition> makeWipe(const Params& /*params*/, int width, int height) {
  return byThresholds(width, height, pixelSoftness(width), [](double x, double /*y*/) { return x; });
}

}  // namespace

const DrawnTransition transitions::Wipe{makeWipe};

}  // namespace kvo::engine
