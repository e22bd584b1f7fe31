#include "engine/effects/by_image.h"

#include "media/bgr.h"

namespace kvo::engine {

media::Canvas byImage(const media::Picture& picture, const std::function<void(cv::Mat& bgr)>& draw) {
  auto out = copyOf(picture);
  cv::Mat bgr(picture.height(), picture.width(), CV_8UC3);
  media::toBgr(picture, bgr.data, bgr.step);
  draw(bgr);
  media::fromBgr(bgr.data, bgr.step, out);
  return out;
}

}  // namespace kvo::engine
