// RadialWipe: a hand goes round. `wipestyle`: clock, wedge (two hands from the top), radial (from a corner).
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <cmath>
#include <numbers>

namespace kvo::engine {
namespace {

Result<PaintTransition> makeRadialWipe(const Params& params, int width, int height) {
  const auto style = params.word("wipestyle");
  const double shape = static_cast<double>(width) / height;
  const double softness = pixelSoftness(2 * (width + height));
  if (style == "radial") {
    return byThresholds(width, height, softness, [=](double x, double y) {
      return std::atan2(y, x * shape) / (std::numbers::pi / 2);
    });
  }
  const bool isWedge = style == "wedge";
  return byThresholds(width, height, softness, [=](double x, double y) {
    // Clockwise from the top, 0 to 1.
    const double angle = std::atan2((x - 0.5) * shape, 0.5 - y) / (2 * std::numbers::pi);
    if (isWedge) return std::fabs(angle) * 2;
    return angle < 0 ? angle + 1 : angle;
  });
}

}  // namespace

const DrawnTransition transitions::RadialWipe{makeRadialWipe};

}  // namespace kvo::engine
