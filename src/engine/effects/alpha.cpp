// Alpha: how much of the picture is seen, evenly or fading outwards.
#include "engine/effects/registry.h"
#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kvo::engine {
namespace {

// Where a point lies on the way from the first opacity (0) to the last (1).
double wayAt(int style, double x, double y) {
  const double across = std::fabs(2 * x - 1);
  const double down = std::fabs(2 * y - 1);
  switch (style) {
    case 1:
      return x;
    case 2:
      return std::min(std::hypot(across, down), 1.0);
    case 3:
      return std::max(across, down);
    default:
      return 0;
  }
}

// The parameters "Opacity" and "FinishOpacity" (percent) and "Style": 0 the same everywhere, 1 from left to
// right, 2 from the middle outwards in circles, 3 in rectangles.
DrawEffect makeAlpha(const Params& params, int /*width*/, int /*height*/) {
  return [params](const media::Picture& picture, const EffectMoment& moment) {
    const int style = static_cast<int>(params.number("style", moment.time, 0, 0, 3));
    const double first = params.number("opacity", moment.time, 100, 0, 100) * 255 / 100;
    const double last =
        style == 0 ? first : params.number("finishopacity", moment.time, 0, 0, 100) * 255 / 100;
    if (first >= 255 && last >= 255) return picture;
    auto out = copyWithAlpha(picture);
    std::vector<std::uint8_t> shares(static_cast<std::size_t>(out.width()));
    for (int plane = 0; plane < out.planes(); ++plane) {
      const int width = out.width(plane);
      const int height = out.height(plane);
      for (int y = 0; y < height; ++y) {
        if (style != 0 || y == 0) {
          for (int x = 0; x < width; ++x) {
            // A fade outwards is that of the whole opacity: both ends rise and fall with it.
            const double way = wayAt(style, (x + 0.5) / width, (y + 0.5) / height);
            const double value = style == 0 ? first : first * (1 - way) + std::min(last, first) * way;
            shares[static_cast<std::size_t>(x)] = static_cast<std::uint8_t>(std::lround(value));
          }
        }
        media::fadeRow(out.row(plane, y), shares.data(), out.row(plane, y), static_cast<std::size_t>(width),
                       media::Picture::blackOf(plane));
      }
    }
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::Alpha{makeAlpha};

}  // namespace kvo::engine
