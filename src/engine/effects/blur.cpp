// Blur: everything out of focus.
#include "engine/effects/registry.h"
#include "engine/picture/planes.h"

#include <cmath>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

constexpr double kBoxFrom = 8;  // three boxes are as good as the bell, and cost the same at any radius

void blurPlane(const ReadPlane& from, cv::Mat to, double radius) {
  if (radius < kBoxFrom) {
    const int side = 2 * static_cast<int>(std::ceil(radius * 1.5)) + 1;
    cv::GaussianBlur(from, to, {side, side}, radius / 2, radius / 2, cv::BORDER_REPLICATE);
    return;
  }
  // Three boxes of this side spread as a bell of half the radius does.
  const int side = 2 * static_cast<int>(std::lround(std::sqrt(radius * radius / 4 * 4 + 1) / 2)) + 1;
  cv::blur(from, to, {side, side}, {-1, -1}, cv::BORDER_REPLICATE);
  cv::blur(to, to, {side, side}, {-1, -1}, cv::BORDER_REPLICATE);
  cv::blur(to, to, {side, side}, {-1, -1}, cv::BORDER_REPLICATE);
}

// The parameter "PixelRadius", 0 to 100 pixels.
DrawEffect makeBlur(const Params& params, int /*width*/, int /*height*/) {
  return [params](const media::Picture& picture, const EffectMoment& moment) {
    const double radius = params.number("pixelradius", moment.time, 0, 0, 100);
    if (radius < 0.25) return picture;
    auto out = media::Canvas::makeLike(picture);
    for (int plane = 0; plane < out.planes(); ++plane) {
      blurPlane(planeOf(picture, plane), planeOf(out, plane),
                media::Picture::isChroma(plane) ? radius / 2 : radius);
    }
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::Blur{makeBlur};

}  // namespace kvo::engine
