#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"
#include "engine/effects/streaks.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>

namespace kvo::engine::palette {

void accents(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 1.5));
  bgr = flattened(bgr, sized(style, 3));
  cv::Mat lines = edgesOf(grey, 2 * style.strength);
  cv::dilate(lines, lines, cv::getStructuringElement(cv::MORPH_ELLIPSE, {sized(style, 3), sized(style, 3)}));
  paintOver(bgr, soft(lines, style.unit), style.hasInk ? style.ink : cv::Vec3b(255, 255, 255));
}

void inkOutline(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 1));
  bgr = mixed(bgr, streaks(bgr, 45 + style.angle, sized(style, 6)), 0.7);
  cv::Mat lines = edgesOf(grey, 2 * style.strength);
  cv::threshold(lines, lines, 70, 255, cv::THRESH_TOZERO);
  cv::dilate(lines, lines,
             cv::getStructuringElement(cv::MORPH_ELLIPSE, {sized(style, 1.4), sized(style, 1.4)}));
  paintOver(bgr, lines, style.ink);
}

void posterEdges(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 1.5));
  bgr = inSteps(flattened(bgr, sized(style, 5)), 6);
  cv::Mat lines = edgesOf(grey, 1.6 * style.strength);
  contrast(lines, 2, 90);
  paintOver(bgr, lines, style.ink);
}

void stamp(cv::Mat& bgr, const Style& style) {
  cv::Mat grey = soft(greyOf(smoothed(bgr, style, 3)), sized(style, 5));
  contrast(grey, 24, 128 * std::min(1.6, 0.8 + 0.2 * style.strength));
  bgr = printed(grey, style.ink, style.paper);
}

void photocopy(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 0));
  // Toner lies where it is darker than around.
  cv::Mat toner;
  cv::subtract(soft(grey, sized(style, 12)), soft(grey, 1.5 * style.unit), toner);
  toner.convertTo(toner, CV_8U, 5 * style.strength);
  cv::Mat darks;
  grey.convertTo(darks, CV_8U, -2, 110);
  cv::max(toner, darks, toner);
  bgr = printed(~toner, style.ink, style.paper);
}

void tornEdges(cv::Mat& bgr, const Style& style) {
  cv::Mat grey = greyOf(smoothed(bgr, style, 2));
  contrast(grey, 2.2, 118);
  addNoise(grey, noise(grey.size(), sized(style, 4), 34 * style.strength, 25));
  cv::Mat torn;
  cv::threshold(soft(grey, style.unit), torn, 120, 255, cv::THRESH_BINARY);
  torn = soft(torn, style.unit);
  bgr = printed(torn, style.ink, style.paper);
  // The upper sheet throws a shadow.
  const cv::Mat light = lit(soft(torn, 6 * style.unit), 135 + style.angle, 0.8, sized(style, 3));
  cv::Mat shadow;
  light.convertTo(shadow, CV_8U, -2, 240);
  cv::Vec3b dark = style.hasExtra ? style.extra : cv::Vec3b(70, 70, 70);
  paintOver(bgr, shadow, dark, 0.7);
}

void halfTone(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 1));
  const double pitch = std::max(3.0, 6 * style.size * style.unit);
  const double radians = (45 + style.angle) * std::numbers::pi / 180;
  const double c = std::cos(radians) * 2 * std::numbers::pi / pitch;
  const double s = std::sin(radians) * 2 * std::numbers::pi / pitch;
  cv::Mat dots(grey.size(), CV_8U);
  for (int y = 0; y < grey.rows; ++y) {
    const auto* from = grey.ptr<std::uint8_t>(y);
    auto* row = dots.ptr<std::uint8_t>(y);
    for (int x = 0; x < grey.cols; ++x) {
      const double screen = 128 + 60 * (std::cos(x * c + y * s) + std::cos(x * s - y * c));
      row[x] =
          static_cast<std::uint8_t>(std::clamp((from[x] - screen) * 3 * style.strength + 128, 0.0, 255.0));
    }
  }
  bgr = printed(dots, style.ink, style.paper);
}

void reticulation(cv::Mat& bgr, const Style& style) {
  cv::Mat grey = greyOf(smoothed(bgr, style, 1));
  // Dark parts clump, light ones are grained finely.
  const cv::Mat clumps = noise(grey.size(), sized(style, 5), 60 * style.strength, 26);
  const cv::Mat grains = noise(grey.size(), style.unit, 40 * style.strength, 27);
  cv::Mat rough = grey.clone();
  addNoise(rough, mixedBy(clumps, grains, grey));
  contrast(rough, 2.2);
  bgr = printed(rough, style.ink, style.paper);
}

}  // namespace kvo::engine::palette
