// A camera in front of a picture, and how progress may run unevenly.
#pragma once

#include "engine/document/params.h"
#include "engine/picture/drawing.h"

namespace kvo::engine {

/// A point in pixels: x to the right, y downwards, z away from the camera. The picture lies at z = 0.
using Point = cv::Point3d;

/// Turned about the x axis (its upper edge away), the y axis (its right edge away) and the z axis
/// (clockwise), in this order, by degrees.
Point turned(Point point, const Point& degrees);

/// Looks straight at the middle of a picture of this size, from a distance of one and a half widths.
class Camera {
 public:
  Camera(int width, int height);
  /// Where a point is seen. Points behind the camera go far outside.
  [[nodiscard]] cv::Point2d seen(const Point& point) const;

 private:
  cv::Point2d middle_;
  double distance_;
};

/// The way that "ExponentialProgressDuration" (the share of the time that the motion takes, 0 for all of it)
/// and "ExponentialProgressScale" (how much slower it begins, 0 for evenly) make of a progress of 0 to 1.
double unevenProgress(const Params& params, double progress);

}  // namespace kvo::engine
