// Samples drawn out along a line, as by a moving camera or a brush.
#pragma once

#include <opencv2/core.hpp>

namespace kvo::engine {

/// Each sample becomes the mean of those on a line of `length` samples through it. `angle` is in degrees,
/// counter-clockwise from the right. Costs grow with the logarithm of the length.
cv::Mat streaks(cv::InputArray samples, double angle, double length);

/// `samples` moved by whole samples; the edges are repeated.
cv::Mat moved(const cv::Mat& samples, int right, int down);

}  // namespace kvo::engine
