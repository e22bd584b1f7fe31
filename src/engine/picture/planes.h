// Planes as matrices of OpenCV, without a copy. They live no longer than what they are of.
#pragma once

#include "media/picture.h"

#include <opencv2/core.hpp>

namespace kvo::engine {

/// To draw on.
inline cv::Mat planeOf(media::Canvas& canvas, int plane) {
  return {canvas.height(plane), canvas.width(plane), CV_8UC1, canvas.row(plane, 0),
          static_cast<std::size_t>(canvas.stride(plane))};
}

/// A plane, or a part of one, that OpenCV reads. Its matrix stays inside, as a copy of one could be written
/// to.
class ReadPlane {
 public:
  ReadPlane(const media::Planes& picture, int plane)
      : samples_(picture.height(plane), picture.width(plane), CV_8UC1,
                 const_cast<std::uint8_t*>(picture.row(plane, 0)),  // a matrix is made of nothing else
                 static_cast<std::size_t>(picture.stride(plane))) {}

  [[nodiscard]] ReadPlane part(const cv::Rect& samples) const { return ReadPlane(samples_(samples)); }
  operator cv::_InputArray() const { return samples_; }  // NOLINT(google-explicit-constructor)

  [[nodiscard]] cv::Size size() const { return samples_.size(); }
  void copyTo(const cv::Mat& to) const { samples_.copyTo(to); }

 private:
  explicit ReadPlane(cv::Mat samples) : samples_(std::move(samples)) {}

  cv::Mat samples_;
};

inline ReadPlane planeOf(const media::Planes& picture, int plane) { return {picture, plane}; }

}  // namespace kvo::engine
