#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

namespace kvo::engine::palette {

void basRelief(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 2));
  cv::Mat light = lit(grey, 135 + style.angle, 3 * style.strength, sized(style, 3));
  const cv::Vec3b dark = style.hasInk ? style.ink : cv::Vec3b(40, 50, 60);
  const cv::Vec3b bright = style.hasPaper ? style.paper : cv::Vec3b(235, 240, 245);
  bgr = printed(light, dark, bright);
}

void emboss(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 0));
  const cv::Mat light = lit(grey, 135 + style.angle, 2.2 * style.strength, sized(style, 2));
  cv::cvtColor(light, bgr, cv::COLOR_GRAY2BGR);
}

void notePaper(cv::Mat& bgr, const Style& style) {
  cv::Mat grey = soft(greyOf(smoothed(bgr, style, 2)), sized(style, 3));
  contrast(grey, 20, 120);
  const cv::Vec3b raised = style.hasPaper ? style.paper : cv::Vec3b(205, 215, 220);
  const cv::Vec3b sunken = style.hasInk ? style.ink : cv::Vec3b(150, 160, 165);
  cv::Mat light = lit(soft(grey, 3 * style.unit), 135 + style.angle, style.strength, sized(style, 2));
  bgr = printed(grey, sunken, raised);
  shade(bgr, light, 0.5);
  addNoise(bgr, noise(bgr.size(), style.unit, 10, 41));
}

void plaster(cv::Mat& bgr, const Style& style) {
  cv::Mat height = soft(greyOf(smoothed(bgr, style, 3)), sized(style, 6));
  contrast(height, 5, 120);
  height = soft(height, sized(style, 4));
  const cv::Mat light = lit(height, 90 + style.angle, 1.2 * style.strength, sized(style, 3));
  const cv::Vec3b dark = style.hasInk ? style.ink : cv::Vec3b(60, 65, 70);
  const cv::Vec3b bright = style.hasPaper ? style.paper : cv::Vec3b(225, 232, 238);
  bgr = printed(height, dark, style.hasExtra ? style.extra : cv::Vec3b(165, 170, 175), bright);
  shade(bgr, light, 0.8);
}

void texturizer(cv::Mat& bgr, const Style& style) {
  bgr = smoothed(bgr, style, 0);
  const cv::Mat ground = weave(bgr.size(), sized(style, 4));
  if (style.hasTexture) paintOver(bgr, ~ground, style.texture, 0.4);
  shade(bgr, lit(ground, 135 + style.angle, 1.4 * style.strength, sized(style, 1)), 0.9);
}

void craquelure(cv::Mat& bgr, const Style& style) {
  bgr = smoothed(bgr, style, 0);
  const auto cells = cellsOf(bgr.size(), std::max(6, sized(style, 22)), 0.8 * style.unit, 42);
  const cv::Mat cracks = soft(cells.rim, style.unit);
  shade(bgr, lit(soft(cells.rim, 3 * style.unit), 135 + style.angle, 0.7 * style.strength, sized(style, 1)),
        0.8);
  paintOver(bgr, cracks, style.hasInk ? style.ink : cv::Vec3b(20, 25, 30), 0.85);
}

}  // namespace kvo::engine::palette
