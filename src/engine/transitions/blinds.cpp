// Blinds: slats turn over together. `bands` slats, moving in a `direction`.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <cmath>

namespace kvo::engine {
namespace {

Result<PaintTransition> makeBlinds(const Params& params, int width, int height) {
  constexpr double kBands = 10;
  const double bands = params.count("bands", kBands);
  const auto direction = params.word("direction");
  const bool upright = direction != "up" && direction != "down";
  const bool backward = direction == "left" || direction == "up";
  const int pixels = static_cast<int>((upright ? width : height) / bands) + 1;
  return byThresholds(width, height, pixelSoftness(pixels), [=](double x, double y) {
    const double inBand = std::fmod((upright ? x : y) * bands, 1.0);
    return backward ? 1 - inBand : inBand;
  });
}

}  // namespace

const DrawnTransition transitions::Blinds{makeBlinds};

}  // namespace kvo::engine
