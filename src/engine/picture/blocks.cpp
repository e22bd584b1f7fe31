#include "engine/picture/blocks.h"

#include "engine/picture/planes.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {

void makeBlocks(media::Canvas& out, double size) {
  const cv::Size blocks(std::max(1, static_cast<int>(std::lround(out.width() / size))),
                        std::max(1, static_cast<int>(std::lround(out.height() / size))));
  cv::Mat small;
  for (int plane = 0; plane < out.planes(); ++plane) {
    auto samples = planeOf(out, plane);
    cv::resize(samples, small, blocks, 0, 0, cv::INTER_AREA);
    cv::resize(small, samples, samples.size(), 0, 0, cv::INTER_NEAREST);
  }
}

}  // namespace kvo::engine
