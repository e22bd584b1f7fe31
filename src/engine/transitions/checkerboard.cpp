// Checkerboard: the squares of two colours are wiped one after the other.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {
namespace {

Result<PaintTransition> makeCheckerboard(const Params& params, int width, int height) {
  constexpr double kSquares = 8;  // across; as many rows as make them square
  const double across = params.count("squaresx", kSquares);
  const double down = params.count("squaresy", std::max(1.0, std::round(across * height / width)));
  return byThresholds(
      width, height, pixelSoftness(static_cast<int>(2 * width / across) + 1), [=](double x, double y) {
        const bool second = (static_cast<int>(x * across) + static_cast<int>(y * down)) % 2 == 1;
        return (std::fmod(x * across, 1.0) + (second ? 1 : 0)) / 2;
      });
}

}  // namespace

const DrawnTransition transitions::Checkerboard{makeCheckerboard};

}  // namespace kvo::engine
