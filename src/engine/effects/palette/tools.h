// What painting and print are made of: smoothed pictures, edges, strokes, grain, cells, papers and inks.
// Greys are 8 bits of one channel, colours 3 channels: blue, green, red.
#pragma once

#include "engine/effects/palette/style.h"

#include <opencv2/core.hpp>

namespace kvo::engine {

cv::Mat greyOf(const cv::Mat& bgr);
/// Without detail smaller than `pixels`; edges stay sharp.
cv::Mat flattened(const cv::Mat& image, int pixels);
/// Out of focus by `pixels`.
cv::Mat soft(const cv::Mat& image, double pixels);
/// As `soft`, by control 3 and something of the effect's own (pixels of a picture 360 high).
cv::Mat smoothed(const cv::Mat& image, const Style& style, double pixels);
/// Where a grey changes: 0 to 255.
cv::Mat edgesOf(const cv::Mat& grey, double strength);
/// Grey noise about 128 whose grains are `pixels` large, the same for the same seed.
cv::Mat noise(cv::Size size, double pixels, double amount, unsigned seed);
/// Image plus (noise - 128).
void addNoise(cv::Mat& image, const cv::Mat& grey);
/// Grey strokes along an angle (degrees), denser where `grey` is darker: 0 is ink, 255 none.
cv::Mat hatching(const cv::Mat& grey, double angle, int length, double strength, unsigned seed);
/// Each channel in so many steps.
cv::Mat inSteps(const cv::Mat& image, int steps);
/// A curve through contrast about a middle (0 to 255): a factor of 1 changes nothing.
void contrast(cv::Mat& image, double factor, double middle = 128);
/// A grey surface lit from an angle: 128 where it is level.
cv::Mat lit(const cv::Mat& height, double angle, double strength, int distance);
/// `image` with the light of a surface on it.
void shade(cv::Mat& image, const cv::Mat& light, double share);
/// Grey 0 to 255 as colours from `ink` to `paper`.
cv::Mat printed(const cv::Mat& grey, const cv::Vec3b& ink, const cv::Vec3b& paper);
/// As printed, by way of `middle`.
cv::Mat printed(const cv::Mat& grey, const cv::Vec3b& ink, const cv::Vec3b& middle, const cv::Vec3b& paper);
/// `image` where `mask` is 0, `colour` where it is 255, mixed between.
void paintOver(cv::Mat& image, const cv::Mat& mask, const cv::Vec3b& colour, double share = 1);
/// out = a + (b - a) * share.
cv::Mat mixed(const cv::Mat& a, const cv::Mat& b, double share);
/// out = a where `mask` is 0, b where it is 255.
cv::Mat mixedBy(const cv::Mat& a, const cv::Mat& b, const cv::Mat& mask);
/// Painted in dabs: each point takes the calmest mean around it.
cv::Mat dabs(const cv::Mat& bgr, int pixels);
/// The ground of a canvas: 128 and about it.
cv::Mat weave(cv::Size size, double pixels);

/// A picture parted into cells about scattered points.
struct Cells {
  cv::Mat owner;  ///< the number of each point's cell, 32 bits
  cv::Mat rim;    ///< 255 on the lines between cells, 0 inside
  int count = 0;
};
Cells cellsOf(cv::Size size, int pixels, double rimPixels, unsigned seed);
/// Each cell in its mean colour.
cv::Mat inCells(const cv::Mat& bgr, const Cells& cells);

/// Each point takes the colour of the one that lies (noise - 128) / 128 * `pixels` away.
cv::Mat displaced(const cv::Mat& bgr, const cv::Mat& across, const cv::Mat& down, double pixels);

}  // namespace kvo::engine
