// Chroma: one colour of the picture becomes transparent.
#include "engine/effects/registry.h"
#include "media/colour.h"
#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kvo::engine {
namespace {

constexpr double kSoft = 0.4;  // of the tolerance: from here on inwards it is half seen

// The parameters "Color" (green without it) and "Tolerance" (percent, 20 without it; 0 leaves all as it is).
DrawEffect makeChroma(const Params& params, int /*width*/, int height) {
  const auto key =
      media::yuvOf(media::parseColour(params.word("color")).value_or(media::Colour{0, 255, 0}), height);
  return [params, key](const media::Picture& picture, const EffectMoment& moment) {
    // The distance between two chromas is at most about 180.
    const double tolerance = params.number("tolerance", moment.time, 20, 0, 100) * 1.8;
    if (tolerance <= 0) return picture;
    auto out = copyWithAlpha(picture);
    std::vector<std::uint8_t> half(static_cast<std::size_t>(out.width(1)));
    std::vector<std::uint8_t> full(static_cast<std::size_t>(out.width()));
    for (int y = 0; y < out.height(1); ++y) {
      for (int x = 0; x < out.width(1); ++x) {
        const double away = std::hypot(out.row(1, y)[x] - key.u, out.row(2, y)[x] - key.v);
        const double share = std::clamp((away / tolerance - (1 - kSoft)) / kSoft, 0.0, 1.0);
        const auto value = static_cast<std::uint8_t>(std::lround(255 * share));
        const auto column = static_cast<std::size_t>(x);
        half[column] = full[2 * column] = full[2 * column + 1] = value;
      }
      for (int plane = 0; plane < 4; ++plane) {
        const bool chroma = media::Picture::isChroma(plane);
        for (int row = chroma ? y : 2 * y; row <= (chroma ? y : 2 * y + 1); ++row) {
          media::fadeRow(out.row(plane, row), chroma ? half.data() : full.data(), out.row(plane, row),
                         static_cast<std::size_t>(out.width(plane)), media::Picture::blackOf(plane));
        }
      }
    }
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::Chroma{makeChroma};

}  // namespace kvo::engine
