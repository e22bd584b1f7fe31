#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>

namespace kvo::engine::palette {
namespace {

// The picture in squares, each of its mean.
cv::Mat inSquares(const cv::Mat& bgr, int side) {
  const cv::Size squares(std::max(1, (bgr.cols + side - 1) / side),
                         std::max(1, (bgr.rows + side - 1) / side));
  cv::Mat whole;
  cv::copyMakeBorder(bgr, whole, 0, squares.height * side - bgr.rows, 0, squares.width * side - bgr.cols,
                     cv::BORDER_REPLICATE);
  cv::Mat small;
  cv::resize(whole, small, squares, 0, 0, cv::INTER_AREA);
  cv::resize(small, whole, whole.size(), 0, 0, cv::INTER_NEAREST);
  return whole(cv::Rect(0, 0, bgr.cols, bgr.rows)).clone();
}

// 255 on the lines between squares.
cv::Mat joints(cv::Size size, int side, int width) {
  cv::Mat lines = cv::Mat::zeros(size, CV_8U);
  for (int y = 0; y < size.height; y += side) {
    lines(cv::Rect(0, y, size.width, std::min(width, size.height - y))).setTo(255);
  }
  for (int x = 0; x < size.width; x += side) {
    lines(cv::Rect(x, 0, std::min(width, size.width - x), size.height)).setTo(255);
  }
  return lines;
}

}  // namespace

void mosaic(cv::Mat& bgr, const Style& style) {
  const int side = std::max(3, sized(style, 10));
  const int joint = std::max(1, side / 9);
  bgr = inSquares(smoothed(bgr, style, 0), side);
  const cv::Mat lines = joints(bgr.size(), side, joint);
  shade(bgr, lit(lines, 135 + style.angle, 0.35 * style.strength, joint), 0.8);
  paintOver(bgr, lines, style.hasInk ? style.ink : cv::Vec3b(60, 62, 65), 0.8);
}

void patchwork(cv::Mat& bgr, const Style& style) {
  const int side = std::max(4, sized(style, 12));
  bgr = inSquares(smoothed(bgr, style, 0), side);
  // Light patches stand higher: their edges catch light, and throw shadows.
  const cv::Mat light = lit(greyOf(bgr), 135 + style.angle, 0.9 * style.strength, std::max(1, side / 6));
  shade(bgr, light, 0.8);
  paintOver(bgr, joints(bgr.size(), side, 1), {20, 20, 20}, 0.5);
}

void stainedGlass(cv::Mat& bgr, const Style& style) {
  const auto cells =
      cellsOf(bgr.size(), std::max(5, sized(style, 18)), 1.2 * style.unit * style.strength, 51);
  bgr = inCells(smoothed(bgr, style, 0), cells);
  // Light from behind the middle.
  contrast(bgr, 1.15, 100);
  paintOver(bgr, cells.rim, style.ink);
}

void glass(cv::Mat& bgr, const Style& style) {
  const double grains = std::max(1.5, 6 * style.size * style.unit);
  const cv::Mat across = noise(bgr.size(), grains, 60, 52);
  const cv::Mat down = noise(bgr.size(), grains, 60, 53);
  bgr = displaced(smoothed(bgr, style, 0), across, down, 9 * style.strength * style.unit);
  shade(bgr, lit(across, 135 + style.angle, 0.4, 1), 0.5);
}

void ripple(cv::Mat& bgr, const Style& style) {
  const double length = std::max(4.0, 26 * style.size * style.unit);
  cv::Mat across(bgr.size(), CV_8U);
  cv::Mat down(bgr.size(), CV_8U);
  const double turn = 2 * std::numbers::pi / length;
  const double radians = style.angle * std::numbers::pi / 180;
  for (int y = 0; y < bgr.rows; ++y) {
    for (int x = 0; x < bgr.cols; ++x) {
      const double along = x * std::cos(radians) + y * std::sin(radians);
      const double beside = y * std::cos(radians) - x * std::sin(radians);
      across.ptr<std::uint8_t>(y)[x] = static_cast<std::uint8_t>(
          std::lround(128 + 60 * std::sin(beside * turn + std::sin(along * turn / 2.7))));
      down.ptr<std::uint8_t>(y)[x] = static_cast<std::uint8_t>(
          std::lround(128 + 60 * std::cos(along * turn * 0.8 + std::sin(beside * turn / 2.1))));
    }
  }
  bgr = displaced(smoothed(bgr, style, 0), across, down, 9 * style.strength * style.unit);
  shade(bgr, lit(down, 90, 0.5, 2), 0.5);
}

void spatter(cv::Mat& bgr, const Style& style) {
  const cv::Mat across = noise(bgr.size(), std::max(1.0, 1.5 * style.unit), 62, 54);
  const cv::Mat down = noise(bgr.size(), std::max(1.0, 1.5 * style.unit), 62, 55);
  bgr = displaced(smoothed(bgr, style, 0), across, down, sized(style, 14) * style.strength);
}

}  // namespace kvo::engine::palette
