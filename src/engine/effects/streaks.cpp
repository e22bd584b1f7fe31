#include "engine/effects/streaks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace kvo::engine {

cv::Mat moved(const cv::Mat& samples, int right, int down) {
  const int x = std::clamp(right, 1 - samples.cols, samples.cols - 1);
  const int y = std::clamp(down, 1 - samples.rows, samples.rows - 1);
  cv::Mat wide;
  cv::copyMakeBorder(samples, wide, std::max(y, 0), std::max(-y, 0), std::max(x, 0), std::max(-x, 0),
                     cv::BORDER_REPLICATE);
  return wide(cv::Rect(std::max(-x, 0), std::max(-y, 0), samples.cols, samples.rows));
}

// The mean of a line of 2 n samples is that of two lines of n, one beside the other.
cv::Mat streaks(cv::InputArray samples, double angle, double length) {
  const double radians = angle * std::numbers::pi / 180;
  const double right = std::cos(radians);
  const double down = -std::sin(radians);
  const auto step = [&](double far) {
    return cv::Point(static_cast<int>(std::lround(right * far)), static_cast<int>(std::lround(down * far)));
  };
  cv::Mat line;
  samples.copyTo(line);
  double reached = 1;
  while (reached < length) {
    const double next = std::min(reached, length - reached);
    const auto by = step(next);
    if (by != cv::Point(0, 0)) cv::addWeighted(line, 0.5, moved(line, by.x, by.y), 0.5, 0, line);
    reached += std::max(next, 0.5);
  }
  const auto back = step(-length / 2);
  return moved(line, back.x, back.y).clone();
}

}  // namespace kvo::engine
