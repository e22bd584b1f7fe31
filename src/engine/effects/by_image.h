// Effects that work on colours: a picture as blue, green, red, and back.
#pragma once

#include "media/picture.h"

#include <functional>
#include <opencv2/core.hpp>

namespace kvo::engine {

/// A new picture with the colours that `draw` makes of `picture`'s, 3 bytes a pixel; alpha stays. Throws
/// std::bad_alloc when memory is short.
media::Canvas byImage(const media::Picture& picture, const std::function<void(cv::Mat& bgr)>& draw);

}  // namespace kvo::engine
