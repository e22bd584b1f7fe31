// Drop shadow: the picture throws a shadow on what lies below it.
#include "engine/effects/registry.h"
#include "engine/picture/drawing.h"
#include "engine/picture/planes.h"
#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace kvo::engine {
namespace {

using media::Canvas;
using media::Picture;

constexpr double kSoftness = 0.4;  // of the longer offset

// The shape of `picture`, moved and soft, in one colour.
Canvas shadowOf(const Picture& picture, double right, double down, const media::YuvColour& colour) {
  auto shadow = Canvas::clear(picture.width(), picture.height());
  auto shape = Canvas::clear(picture.width(), picture.height());
  drawMoved(picture, wholeOf(picture), right, down, shape);
  const int side = 2 * static_cast<int>(kSoftness * std::max(std::fabs(right), std::fabs(down))) + 1;
  cv::blur(planeOf(shape, 3), planeOf(shadow, 3), {side, side});
  shadow.fill(0, colour.y);
  shadow.fill(1, colour.u);
  shadow.fill(2, colour.v);
  cv::Mat half;
  cv::resize(planeOf(shadow, 3), half, {shadow.width(1), shadow.height(1)}, 0, 0, cv::INTER_AREA);
  for (int plane = 0; plane < 3; ++plane) {
    for (int y = 0; y < shadow.height(plane); ++y) {
      const auto* alpha = Picture::isChroma(plane) ? half.ptr<std::uint8_t>(y) : shadow.row(3, y);
      media::fadeRow(shadow.row(plane, y), alpha, shadow.row(plane, y),
                     static_cast<std::size_t>(shadow.width(plane)), Picture::blackOf(plane));
    }
  }
  return shadow;
}

// The parameters "OffX" and "OffY" (pixels, 0 and 0 change nothing) and "Color" (grey without it). A picture
// that fills its frame is made smaller, so that there is room for the shadow.
DrawEffect makeDropShadow(const Params& params, int width, int height) {
  const auto colour =
      media::yuvOf(media::parseColour(params.word("color")).value_or(media::Colour{64, 64, 64}), height);
  return [=](const Picture& picture, const EffectMoment& moment) {
    const double right = params.number("offx", moment.time, 5, -width / 2.0, width / 2.0);
    const double down = params.number("offy", moment.time, 5, -height / 2.0, height / 2.0);
    if (std::lround(right / 2) == 0 && std::lround(down / 2) == 0) return picture;
    auto whole = picture;
    if (!picture.hasAlpha()) {
      auto smaller = Canvas::clear(picture.width(), picture.height());
      const auto opaque = withAlpha(picture);
      drawScaled(
          opaque, wholeOf(opaque),
          {std::max(0.0, -right), std::max(0.0, -down), width - std::fabs(right), height - std::fabs(down)},
          smaller);
      whole = share(std::move(smaller));
    }
    auto out = shadowOf(whole, right, down, colour);
    if (out) drawScaled(whole, wholeOf(whole), wholeOf(out), out);
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::DropShadow{makeDropShadow};

}  // namespace kvo::engine
