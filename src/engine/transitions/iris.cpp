// Iris: an opening grows from the middle. `irisstyle`: circle, cross, plus, square, star.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

namespace kvo::engine {
namespace {

// How large a five-pointed star, one point up, has to be to reach a point.
double starDistance(double x, double y) {
  constexpr double kHalfPoint = std::numbers::pi / 5;
  constexpr double kInner = 0.382;  // of the outer radius: the pentagram's
  const double angle = std::atan2(x, -y) + 2 * std::numbers::pi;
  const double fold = std::fabs(std::fmod(angle + kHalfPoint, 2 * kHalfPoint) - kHalfPoint);
  const double radius = std::hypot(x, y);
  // The edge runs from the point at (1, 0) to the notch.
  const double notchX = kInner * std::cos(kHalfPoint);
  const double notchY = kInner * std::sin(kHalfPoint);
  return radius * (notchY * std::cos(fold) + (1 - notchX) * std::sin(fold)) / notchY;
}

// How large an opening of a shape has to be to reach a point; the middle is 0, 0, the upper edge at y = -1.
std::function<double(double, double)> distanceOf(std::string_view style) {
  if (style == "square") return [](double x, double y) { return std::max(std::fabs(x), std::fabs(y)); };
  if (style == "plus") return [](double x, double y) { return std::min(std::fabs(x), std::fabs(y)); };
  if (style == "cross") return [](double x, double y) { return std::fabs(std::fabs(x) - std::fabs(y)); };
  if (style == "star") return starDistance;
  return [](double x, double y) { return std::hypot(x, y); };
}

Result<PaintTransition> makeIris(const Params& params, int width, int height) {
  const auto style = params.word("irisstyle");
  const double shape = static_cast<double>(width) / height;
  const auto distance = distanceOf(style);
  // What lies farthest changes last: a corner, or the middle of a side.
  double farthest = 0;
  for (const double x : {-1.0, 0.0, 1.0}) {
    for (const double y : {-1.0, 0.0, 1.0}) farthest = std::max(farthest, distance(x * shape, y));
  }
  return byThresholds(width, height, pixelSoftness(std::max(width, height) / 2), [=](double x, double y) {
    return distance((x * 2 - 1) * shape, y * 2 - 1) / farthest;
  });
}

}  // namespace

const DrawnTransition transitions::Iris{makeIris};

}  // namespace kvo::engine
