#include "engine/transitions/threshold.h"

#include "media/pixel_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace kvo::engine {
namespace {

using media::Canvas;
using media::Picture;

struct Maps {
  ThresholdMap full;
  ThresholdMap half;  // of the chroma planes
  int softness = 1;
  int border = 0;
  std::array<std::uint8_t, 4> colour{};
};

ThresholdMap halved(const ThresholdMap& map) {
  ThresholdMap half{map.width / 2, map.height / 2, {}};
  half.values.reserve(map.values.size() / 4);
  for (int y = 0; y < half.height; ++y) {
    const auto* upper = map.values.data() + static_cast<std::ptrdiff_t>(2 * y) * map.width;
    const auto* lower = upper + map.width;
    for (std::size_t x = 0; x < static_cast<std::size_t>(half.width); ++x) {
      half.values.push_back(static_cast<std::uint16_t>(
          (upper[2 * x] + upper[2 * x + 1] + lower[2 * x] + lower[2 * x + 1] + 2) / 4));
    }
  }
  return half;
}

void paint(const Maps& maps, const Picture& below, const Picture& above, double progress, Canvas& out) {
  const int position = static_cast<int>(std::lround(progress * (kWay + maps.softness + maps.border)));
  const auto width = static_cast<std::size_t>(out.width());
  std::vector<std::uint8_t> shares(width);
  std::vector<std::uint8_t> line(width);
  for (int plane = 0; plane < out.planes(); ++plane) {
    const auto& map = Picture::isChroma(plane) ? maps.half : maps.full;
    const auto count = static_cast<std::size_t>(map.width);
    for (int y = 0; y < map.height; ++y) {
      const auto* thresholds = map.values.data() + static_cast<std::ptrdiff_t>(y) * map.width;
      const auto* under = below.row(plane, y);
      if (maps.border > 0) {
        std::fill(line.begin(), line.end(), maps.colour[static_cast<std::size_t>(plane)]);
        media::sharesRow(thresholds, position, maps.softness, shares.data(), count);
        media::mixRowByShares(under, line.data(), shares.data(), line.data(), count);
        under = line.data();
      }
      media::sharesRow(thresholds, position - maps.border, maps.softness, shares.data(), count);
      media::mixRowByShares(under, above.row(plane, y), shares.data(), out.row(plane, y), count);
    }
  }
}

}  // namespace

PaintTransition byThresholdMap(ThresholdMap map, double softness, const std::optional<Border>& border) {
  auto maps = std::make_shared<Maps>();
  maps->full = std::move(map);
  maps->half = halved(maps->full);
  maps->softness = std::clamp(static_cast<int>(std::lround(softness * kWay)), 1, kWay);
  if (border) {
    maps->border = std::clamp(static_cast<int>(std::lround(border->width * kWay)), 0, kWay);
    maps->colour = {border->colour.y, border->colour.u, border->colour.v, 255};
  }
  return [maps](const Picture& below, const Picture& above, const Moment& moment, Canvas& out) {
    paint(*maps, below, above, moment.progress, out);
  };
}

PaintTransition byThresholds(int width, int height, double softness, const ThresholdAt& thresholdAt) {
  ThresholdMap map{width, height, {}};
  map.values.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double t = thresholdAt((x + 0.5) / width, (y + 0.5) / height);
      map.values.push_back(static_cast<std::uint16_t>(std::lround(std::clamp(t, 0.0, 1.0) * kWay)));
    }
  }
  return byThresholdMap(std::move(map), softness, std::nullopt);
}

}  // namespace kvo::engine
