#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"
#include "engine/effects/streaks.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

namespace kvo::engine::palette {

void cutout(cv::Mat& bgr, const Style& style) {
  bgr = flattened(smoothed(bgr, style, 1), sized(style, 11));
  bgr = inSteps(bgr, std::max(3, static_cast<int>(6 / style.strength)));
  bgr = flattened(bgr, sized(style, 5));
}

void dryBrush(cv::Mat& bgr, const Style& style) {
  bgr = dabs(smoothed(bgr, style, 0), sized(style, 6));
  const int levels = std::max(5, static_cast<int>(12 / style.strength));
  bgr = mixed(bgr, inSteps(bgr, levels), 0.7);
}

void fresco(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 1));
  bgr = dabs(bgr, sized(style, 7));
  contrast(bgr, 1 + 0.4 * style.strength, 140);
  paintOver(bgr, edgesOf(soft(grey, 2 * style.unit), style.strength), {20, 20, 20}, 0.8);
}

void paintDaubs(cv::Mat& bgr, const Style& style) {
  bgr = dabs(smoothed(bgr, style, 0), sized(style, 9));
  cv::addWeighted(bgr, 1 + 0.9 * style.strength, soft(bgr, 6 * style.unit), -0.9 * style.strength, 0, bgr);
}

void paletteKnife(cv::Mat& bgr, const Style& style) {
  bgr = dabs(smoothed(bgr, style, 0), sized(style, 11));
  const cv::Mat light = lit(greyOf(bgr), 135 + style.angle, 0.5 * style.strength, sized(style, 2));
  bgr = dabs(bgr, sized(style, 7));
  shade(bgr, light, 0.8);
}

void sponge(cv::Mat& bgr, const Style& style) {
  const cv::Mat blots = noise(bgr.size(), sized(style, 7), 55 * style.strength, 21);
  bgr = flattened(smoothed(bgr, style, 1), sized(style, 5));
  cv::Mat wet = bgr.clone();
  contrast(wet, 1.1, 255);
  addNoise(wet, cv::Mat(bgr.size(), CV_8U, cv::Scalar(108)));
  cv::Mat mask = blots.clone();
  contrast(mask, 4);
  bgr = mixedBy(bgr, wet, soft(mask, style.unit));
}

void watercolor(cv::Mat& bgr, const Style& style) {
  bgr = flattened(smoothed(bgr, style, 0), sized(style, 9));
  bgr = dabs(bgr, sized(style, 5));
  // Pigment gathers at the rims of a wash and runs unevenly in it.
  paintOver(bgr, edgesOf(greyOf(bgr), 0.7 * style.strength), {40, 30, 30}, 0.55);
  addNoise(bgr, noise(bgr.size(), sized(style, 24), 14, 22));
  addNoise(bgr, noise(bgr.size(), style.unit, 6, 23));
  cv::Mat light(bgr.size(), CV_8UC3, cv::Scalar(255, 252, 250));
  bgr = mixed(bgr, light, 0.14);
}

void waterPaper(cv::Mat& bgr, const Style& style) {
  const cv::Mat from = smoothed(bgr, style, 0);
  const int length = sized(style, 26);
  // Fibres lead the colour across and down.
  cv::Mat ragged = from.clone();
  addNoise(ragged, noise(bgr.size(), style.unit, 60 * style.strength, 24));
  cv::Mat across = streaks(ragged, style.angle, length);
  cv::Mat down = streaks(ragged, 90 + style.angle, length);
  cv::max(across, down, bgr);
  bgr = mixed(from, bgr, 0.75);
  contrast(bgr, 1.1, 100);
}

void underpainting(cv::Mat& bgr, const Style& style) {
  cv::Mat coarse = flattened(smoothed(bgr, style, 6), sized(style, 21));
  cv::Mat ground = weave(bgr.size(), sized(style, 4));
  if (style.hasTexture) paintOver(coarse, ~ground, style.texture, 0.35);
  shade(coarse, lit(ground, 135 + style.angle, 1.2 * style.strength, sized(style, 1)), 0.7);
  bgr = coarse;
}

}  // namespace kvo::engine::palette
