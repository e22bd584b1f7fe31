#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"
#include "engine/effects/streaks.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>

namespace kvo::engine::palette {

void chrome(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = soft(greyOf(smoothed(bgr, style, 3)), sized(style, 6));
  // A polished surface mirrors light and dark several times over its slopes.
  cv::Mat table(1, 256, CV_8U);
  for (int v = 0; v < 256; ++v) {
    const double waves = std::sin(v / 255.0 * 2 * std::numbers::pi * (1.5 + style.strength));
    table.at<std::uint8_t>(0, v) =
        static_cast<std::uint8_t>(std::clamp(0.45 * v + 70 + 85 * waves, 0.0, 255.0));
  }
  cv::Mat metal;
  cv::LUT(grey, table, metal);
  shade(metal, lit(grey, 135 + style.angle, 1.5, sized(style, 2)), 0.6);
  cv::cvtColor(metal, bgr, cv::COLOR_GRAY2BGR);
}

void diffuseGlow(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 0));
  cv::Mat bright;
  grey.convertTo(bright, CV_8U, 1.6 * style.strength, -150 * style.strength);
  bright = soft(bright, sized(style, 16));
  addNoise(bright, noise(bright.size(), style.unit, 16, 31));
  const cv::Vec3b glow = style.hasPaper ? style.paper : cv::Vec3b(255, 255, 255);
  paintOver(bgr, bright, glow, 0.9);
}

void glowingEdges(cv::Mat& bgr, const Style& style) {
  const cv::Mat from = smoothed(bgr, style, 1);
  cv::Mat across;
  cv::Mat down;
  cv::Mat lines;
  cv::Sobel(from, across, CV_16S, 1, 0);
  cv::Sobel(from, down, CV_16S, 0, 1);
  cv::convertScaleAbs(across, across, style.strength);
  cv::convertScaleAbs(down, down, style.strength);
  cv::add(across, down, lines);
  cv::dilate(lines, lines,
             cv::getStructuringElement(cv::MORPH_ELLIPSE, {sized(style, 1.5), sized(style, 1.5)}));
  cv::addWeighted(lines, 0.9, soft(lines, sized(style, 5)), 0.9, 0, bgr);
}

void neonGlow(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 2));
  const cv::Vec3b tube = style.hasExtra ? style.extra : cv::Vec3b(255, 80, 40);
  const cv::Vec3b dark = style.hasInk ? style.ink : cv::Vec3b(25, 10, 10);
  const cv::Vec3b light = style.hasPaper ? style.paper : cv::Vec3b(230, 220, 215);
  bgr = printed(grey, dark, light);
  bgr = mixed(bgr, cv::Mat(bgr.size(), CV_8UC3, cv::Scalar(dark)), 0.35);
  cv::Mat lines = soft(edgesOf(soft(grey, 2 * style.unit), 6 * style.strength), sized(style, 6));
  paintOver(bgr, lines, tube);
  cv::threshold(lines, lines, 170, 255, cv::THRESH_TOZERO);
  paintOver(bgr, lines, {255, 255, 255}, 0.6);
}

void plasticWrap(cv::Mat& bgr, const Style& style) {
  const cv::Mat surface = soft(greyOf(flattened(smoothed(bgr, style, 1), sized(style, 5))), sized(style, 4));
  const cv::Mat shine = lit(surface, 135 + style.angle, 3 * style.strength, sized(style, 5));
  cv::Mat highlights;
  shine.convertTo(highlights, CV_8U, 3, -480);
  cv::Mat shadows;
  shine.convertTo(shadows, CV_8U, -2, 190);
  paintOver(bgr, soft(shadows, 2 * style.unit), {30, 30, 30}, 0.6);
  paintOver(bgr, soft(highlights, style.unit), {255, 255, 255});
}

void filmGrain(cv::Mat& bgr, const Style& style) {
  bgr = smoothed(bgr, style, 0);
  const cv::Mat grains =
      noise(bgr.size(), std::max(1.0, 1.2 * style.size * style.unit), 26 * style.strength, style.seed);
  // Grain is strongest in the middle tones.
  const cv::Mat grey = greyOf(bgr);
  cv::Mat weight;
  cv::absdiff(grey, cv::Scalar(128), weight);
  weight.convertTo(weight, CV_8U, -1.2, 255);
  addNoise(bgr, mixedBy(cv::Mat(grey.size(), CV_8U, cv::Scalar(128)), grains, weight));
}

void grain(cv::Mat& bgr, const Style& style) {
  bgr = smoothed(bgr, style, 0);
  std::vector<cv::Mat> channels;
  cv::split(bgr, channels);
  for (std::size_t c = 0; c < channels.size(); ++c) {
    addNoise(channels[c], noise(bgr.size(), std::max(1.0, style.size * style.unit), 30 * style.strength,
                                style.seed + 1000003U * static_cast<unsigned>(c + 1)));
  }
  cv::merge(channels, bgr);
}

}  // namespace kvo::engine::palette
