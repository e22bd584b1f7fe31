// Inset: the second picture grows out of a corner.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <algorithm>

namespace kvo::engine {
namespace {

Result<PaintTransition> makeInset(const Params& /*params*/, int width, int height) {
  return byThresholds(width, height, pixelSoftness(std::max(width, height)),
                      [](double x, double y) { return std::max(1 - x, 1 - y); });
}

}  // namespace

const DrawnTransition transitions::Inset{makeInset};

}  // namespace kvo::engine
