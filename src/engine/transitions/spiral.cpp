// Spiral: a square path runs from the rim to the middle.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <algorithm>

namespace kvo::engine {
namespace {

Result<PaintTransition> makeSpiral(const Params& /*params*/, int width, int height) {
  constexpr int kCells = 9;  // odd, so that the path ends in the middle
  static_assert(kCells % 2 == 1);
  return byThresholds(width, height, pixelSoftness(kCells * kCells * width / kCells), [](double x, double y) {
    const int column = static_cast<int>(x * kCells);
    const int row = static_cast<int>(y * kCells);
    const int ring = std::min({column, row, kCells - 1 - column, kCells - 1 - row});
    const int side = kCells - 1 - 2 * ring;
    const int outside = kCells * kCells - (side + 1) * (side + 1);
    const int right = column - ring;
    const int down = row - ring;
    int step = 0;  // along the ring: to the right, down, to the left, up
    if (side == 0) {
      step = 0;
    } else if (down == 0 && right < side) {
      step = right;
    } else if (right == side && down < side) {
      step = side + down;
    } else if (down == side && right > 0) {
      step = 2 * side + (side - right);
    } else {
      step = 3 * side + (side - down);
    }
    return static_cast<double>(outside + step) / (kCells * kCells - 1);
  });
}

}  // namespace

const DrawnTransition transitions::Spiral{makeSpiral};

}  // namespace kvo::engine
