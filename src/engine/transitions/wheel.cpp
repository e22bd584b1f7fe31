// Wheel: `spokes` hands go round at once.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <cmath>
#include <numbers>

namespace kvo::engine {
namespace {

Result<PaintTransition> makeWheel(const Params& params, int width, int height) {
  constexpr double kSpokes = 4;
  const double spokes = params.count("spokes", kSpokes);
  const double shape = static_cast<double>(width) / height;
  return byThresholds(width, height, pixelSoftness(static_cast<int>(2 * (width + height) / spokes) + 1),
                      [=](double x, double y) {
                        const double angle =
                            std::atan2((x - 0.5) * shape, 0.5 - y) / (2 * std::numbers::pi) + 1;
                        return std::fmod(angle * spokes, 1.0);
                      });
}

}  // namespace

const DrawnTransition transitions::Wheel{makeWheel};

}  // namespace kvo::engine
