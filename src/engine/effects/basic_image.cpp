// Basic image: mirrored, turned, in greys, as a negative, as an X-ray picture.
#include "engine/effects/registry.h"
#include "engine/picture/drawing.h"
#include "engine/picture/planes.h"

#include <cmath>
#include <opencv2/core.hpp>

namespace kvo::engine {
namespace {

using media::Canvas;
using media::Picture;

constexpr int kBlackAndWhite = 16 + 235;

// A negative: black becomes white. Of what is half seen, half.
void negate(Canvas& picture) {
  auto luma = planeOf(picture, 0);
  if (picture.hasAlpha()) {
    cv::Mat full;
    planeOf(picture, 3).convertTo(full, CV_16S, 219.0 / 255, 2 * 16);
    cv::subtract(full, luma, luma, cv::noArray(), CV_8U);
  } else {
    cv::subtract(cv::Scalar(kBlackAndWhite), luma, luma);
  }
  for (const int plane : {1, 2}) {
    auto chroma = planeOf(picture, plane);
    cv::subtract(cv::Scalar(256), chroma, chroma);
  }
}

void takeColoursOut(Canvas& picture) {
  picture.fill(1, 128);
  picture.fill(2, 128);
}

Canvas turnedByQuarters(const Picture& picture, int quarters) {
  auto out = picture.hasAlpha() ? Canvas::clear(picture.width(), picture.height())
                                : Canvas::black(picture.width(), picture.height());
  if (quarters == 2) {
    for (int plane = 0; plane < out.planes(); ++plane)
      cv::flip(planeOf(picture, plane), planeOf(out, plane), -1);
    return out;
  }
  // Lying, as large as fits.
  const double scale = static_cast<double>(picture.height()) / picture.width();
  const double halfWidth = picture.height() * scale / 2;
  const double halfHeight = picture.height() / 2.0;
  const double x = picture.width() / 2.0;
  Corners corners = {cv::Point2d{x + halfWidth, 0},
                     {x + halfWidth, 2 * halfHeight},
                     {x - halfWidth, 2 * halfHeight},
                     {x - halfWidth, 0}};
  if (quarters == 3) corners = {corners[2], corners[3], corners[0], corners[1]};
  drawTurned(picture, wholeOf(picture), corners, {}, out);
  return out;
}

// The switches "mirror", "invert", "xray", "grayscale", and "rotation" in quarters of a turn, clockwise.
DrawEffect makeBasicImage(const Params& params, int /*width*/, int /*height*/) {
  const bool mirror = params.flag("mirror");
  const bool invert = params.flag("invert");
  const bool xray = params.flag("xray");
  const bool grey = params.flag("grayscale");
  const int quarters = static_cast<int>(params.number("rotation", 0, 0, 0, 1e6)) % 4;
  return [=](const Picture& picture, const EffectMoment& /*moment*/) {
    auto out = copyOf(picture);
    if (mirror) {
      for (int plane = 0; plane < out.planes(); ++plane)
        cv::flip(planeOf(picture, plane), planeOf(out, plane), 1);
    }
    if (quarters != 0) out = turnedByQuarters(share(std::move(out)), quarters);
    if (invert) negate(out);
    if (xray) negate(out);
    if (xray || grey) takeColoursOut(out);
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::BasicImage{makeBasicImage};

}  // namespace kvo::engine
