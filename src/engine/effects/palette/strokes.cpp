#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"
#include "engine/effects/streaks.h"

#include <opencv2/imgproc.hpp>

namespace kvo::engine::palette {
namespace {

// Colours in strokes along an angle: broken up first, so that single strokes are seen.
cv::Mat brushed(const cv::Mat& bgr, const Style& style, double angle, double length, double unrest,
                unsigned seed) {
  cv::Mat out = bgr.clone();
  addNoise(out, noise(bgr.size(), style.unit, unrest, seed));
  return streaks(out, angle + style.angle, sized(style, length));
}

// Lights left bare: what is lighter than the middle takes little ink.
cv::Mat bared(const cv::Mat& grey) {
  cv::Mat out;
  grey.convertTo(out, CV_8U, 2, -90);
  return out;
}

cv::Mat darkness(const cv::Mat& bgr, double from, double to) {
  cv::Mat mask;
  greyOf(bgr).convertTo(mask, CV_8U, -255 / (to - from), 255 * to / (to - from));
  return mask;
}

}  // namespace

void angledStrokes(cv::Mat& bgr, const Style& style) {
  const cv::Mat from = smoothed(bgr, style, 0);
  const cv::Mat lights = brushed(from, style, 45, 18, 45 * style.strength, 1);
  const cv::Mat darks = brushed(from, style, 135, 18, 45 * style.strength, 2);
  bgr = mixedBy(lights, darks, darkness(soft(from, 6 * style.unit), 96, 144));
}

void chalkCharcoal(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 2));
  cv::Mat darks;
  grey.convertTo(darks, CV_8U, 1.6, 40);
  cv::Mat lights;
  grey.convertTo(lights, CV_8U, -1.6, 400);
  const cv::Mat coal = hatching(darks, 45 + style.angle, sized(style, 14), style.strength, 3);
  const cv::Mat chalk = hatching(lights, 135 + style.angle, sized(style, 14), style.strength, 4);
  bgr.setTo(cv::Scalar(style.extra));
  paintOver(bgr, ~chalk, style.paper);
  paintOver(bgr, ~coal, style.ink);
}

void charcoal(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 1));
  cv::Mat strokes = hatching(bared(grey), 45 + style.angle, sized(style, 12), style.strength, 5);
  const cv::Mat lines = ~edgesOf(grey, 1.5 * style.strength);
  cv::min(strokes, lines, strokes);
  bgr = printed(soft(strokes, style.unit), style.ink, style.paper);
}

void colouredPencil(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 0));
  cv::Mat strokes;
  cv::min(hatching(grey, 45 + style.angle, sized(style, 10), 1, 6),
          hatching(grey, 130 + style.angle, sized(style, 10), 1, 7), strokes);
  const cv::Mat paper(bgr.size(), CV_8UC3, cv::Scalar(245, 248, 248));
  bgr = mixedBy(bgr, paper, strokes);
  paintOver(bgr, edgesOf(grey, 0.5 * style.strength), {60, 60, 60}, 0.6);
}

void crosshatch(cv::Mat& bgr, const Style& style) {
  const cv::Mat from = smoothed(bgr, style, 0);
  const cv::Mat up = brushed(from, style, 45, 12, 55, 8);
  const cv::Mat down = brushed(from, style, 135, 12, 55, 9);
  bgr = mixed(up, down, 0.5);
  // Sharp again along the strokes.
  cv::addWeighted(bgr, 1 + 0.8 * style.strength, soft(bgr, 5 * style.unit), -0.8 * style.strength, 0, bgr);
}

void darkStrokes(cv::Mat& bgr, const Style& style) {
  const cv::Mat from = smoothed(bgr, style, 0);
  const cv::Mat lights = brushed(from, style, 45, 22, 35, 10);
  const cv::Mat darks = brushed(from, style, 135, 8, 35, 11);
  bgr = mixedBy(lights, darks, darkness(soft(from, 4 * style.unit), 90, 150));
  contrast(bgr, 1 + 0.5 * style.strength, 150);
}

void smudgeStick(cv::Mat& bgr, const Style& style) {
  const cv::Mat from = smoothed(bgr, style, 1);
  const cv::Mat smudged = streaks(from, 45 + style.angle, sized(style, 20));
  bgr = mixedBy(from, smudged, darkness(soft(from, 4 * style.unit), 80, 190));
  contrast(bgr, 1 + 0.25 * style.strength, 90);
}

void sprayedStrokes(cv::Mat& bgr, const Style& style) {
  const cv::Mat across = noise(bgr.size(), 2 * style.unit, 70, 12);
  const cv::Mat down = noise(bgr.size(), 2 * style.unit, 70, 13);
  bgr = displaced(smoothed(bgr, style, 0), across, down, sized(style, 10) * style.strength);
  bgr = streaks(bgr, 90 + style.angle, sized(style, 9));
}

void sumie(cv::Mat& bgr, const Style& style) {
  const cv::Mat wet = flattened(smoothed(bgr, style, 2), sized(style, 7));
  const cv::Mat grey = greyOf(wet);
  bgr = streaks(wet, 60 + style.angle, sized(style, 8));
  contrast(bgr, 1.3, 110);
  cv::Mat lines = edgesOf(soft(grey, 3 * style.unit), 1.6 * style.strength);
  cv::dilate(lines, lines, cv::getStructuringElement(cv::MORPH_ELLIPSE, {sized(style, 3), sized(style, 3)}));
  paintOver(bgr, soft(lines, 2 * style.unit), style.ink);
}

void graphicPen(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(smoothed(bgr, style, 1));
  cv::Mat strokes = hatching(bared(grey), 45 + style.angle, sized(style, 22), 3, 14);
  cv::threshold(strokes, strokes, 95 + 32 * style.strength, 255, cv::THRESH_BINARY);
  bgr = printed(strokes, style.ink, style.paper);
}

void conteCrayon(cv::Mat& bgr, const Style& style) {
  cv::Mat grey = greyOf(smoothed(bgr, style, 2));
  addNoise(grey, weave(grey.size(), sized(style, 3)));
  addNoise(grey, noise(grey.size(), style.unit, 24, 15));
  contrast(grey, 1.6 * style.strength);
  const cv::Vec3b brown = style.hasInk ? style.ink : cv::Vec3b(30, 45, 80);
  const cv::Vec3b paper = style.hasPaper ? style.paper : cv::Vec3b(225, 235, 240);
  bgr = printed(grey, brown, style.hasExtra ? style.extra : cv::Vec3b(120, 145, 165), paper);
}

void roughPastel(cv::Mat& bgr, const Style& style) {
  const cv::Mat from = smoothed(bgr, style, 1);
  cv::Mat strokes = brushed(from, style, 40, 20, 60 * style.strength, 16);
  // The chalk catches on the ridges of the ground.
  const cv::Mat light = lit(weave(bgr.size(), sized(style, 3)), 135, 1, 1);
  shade(strokes, light, 0.5);
  contrast(strokes, 1.15);
  bgr = strokes;
}

}  // namespace kvo::engine::palette
