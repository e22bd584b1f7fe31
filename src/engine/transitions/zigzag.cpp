// Zigzag: rows of blocks are filled from the top, forth and back.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

namespace kvo::engine {
namespace {

Result<PaintTransition> makeZigzag(const Params& /*params*/, int width, int height) {
  constexpr int kAcross = 16;
  constexpr int kDown = 9;
  return byThresholds(width, height, 0, [](double x, double y) {
    const int row = static_cast<int>(y * kDown);
    const int column = static_cast<int>(x * kAcross);
    const int inRow = row % 2 == 0 ? column : kAcross - 1 - column;
    return static_cast<double>(row * kAcross + inRow) / (kAcross * kDown - 1);
  });
}

}  // namespace

const DrawnTransition transitions::Zigzag{makeZigzag};

}  // namespace kvo::engine
