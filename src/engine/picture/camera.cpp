#include "engine/picture/camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kvo::engine {

Point turned(Point point, const Point& degrees) {
  constexpr double kRadians = std::numbers::pi / 180;
  const auto turn = [](double& a, double& b, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double was = a;
    a = was * c - b * s;
    b = was * s + b * c;
  };
  if (degrees.x != 0) turn(point.y, point.z, degrees.x * kRadians);
  if (degrees.y != 0) turn(point.z, point.x, -degrees.y * kRadians);
  if (degrees.z != 0) turn(point.x, point.y, degrees.z * kRadians);
  return point;
}

Camera::Camera(int width, int height) : middle_(width / 2.0, height / 2.0), distance_(1.5 * width) {}

cv::Point2d Camera::seen(const Point& point) const {
  const double depth = std::max(distance_ + point.z, distance_ / 1000);
  return {middle_.x + (point.x - middle_.x) * distance_ / depth,
          middle_.y + (point.y - middle_.y) * distance_ / depth};
}

double unevenProgress(const Params& params, double progress) {
  const double duration = params.number("exponentialprogressduration", 0, 0, 0, 1);
  const double scale = params.number("exponentialprogressscale", 0, 0, 0, 20);
  double way = duration > 0 ? std::min(progress / duration, 1.0) : progress;
  if (scale > 0) way = std::expm1(way * scale * 4) / std::expm1(scale * 4);
  return way;
}

}  // namespace kvo::engine
