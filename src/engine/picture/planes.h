// The planes of a picture as matrices of OpenCV, without a copy.
#pragma once

#include "media/picture.h"

#include <opencv2/core.hpp>

namespace kvo::engine {

/// Lives no longer than the picture. Written to only where the picture is the caller's own.
inline cv::Mat planeOf(const media::Picture& picture, int plane) {
  return {picture.height(plane), picture.width(plane), CV_8UC1,
          const_cast<std::uint8_t*>(picture.plane(plane)),  // a matrix knows no const
          static_cast<std::size_t>(picture.stride(plane))};
}

}  // namespace kvo::engine
