#include "engine/transitions/threshold.h"

#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

namespace kvo::engine {
namespace {

constexpr int kWay = 65535;  // thresholds are kept in 16 bits

using Map = std::vector<std::uint16_t>;

Map mapOf(int width, int height, const ThresholdAt& thresholdAt) {
  Map map;
  map.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double t = thresholdAt((x + 0.5) / width, (y + 0.5) / height);
      map.push_back(static_cast<std::uint16_t>(std::lround(std::clamp(t, 0.0, 1.0) * kWay)));
    }
  }
  return map;
}

struct Maps {
  Map luma;
  Map chroma;
  int softness;  // at least 1
};

void paint(const Maps& maps, const media::Picture& below, const media::Picture& above, double progress,
           media::Picture& out) {
  const int position = static_cast<int>(std::lround(progress * (kWay + maps.softness)));
  std::vector<std::uint8_t> shares(static_cast<std::size_t>(out.width()));
  for (int plane = 0; plane < 3; ++plane) {
    const auto& map = plane == 0 ? maps.luma : maps.chroma;
    const int width = plane == 0 ? out.width() : out.width() / 2;
    const int height = plane == 0 ? out.height() : out.height() / 2;
    const auto count = static_cast<std::size_t>(width);
    for (int y = 0; y < height; ++y) {
      const auto* thresholds = map.data() + static_cast<std::size_t>(y) * count;
      for (std::size_t x = 0; x < count; ++x) {
        const int past = std::clamp(position - thresholds[x], 0, maps.softness);
        shares[x] = static_cast<std::uint8_t>(past * 255 / maps.softness);
      }
      const auto row = [y](const media::Picture& picture, int p) {
        return picture.plane(p) + static_cast<std::ptrdiff_t>(y) * picture.stride(p);
      };
      media::mixRowByShares(row(below, plane), row(above, plane), shares.data(),
                            out.plane(plane) + static_cast<std::ptrdiff_t>(y) * out.stride(plane), count);
    }
  }
}

}  // namespace

PaintTransition byThresholds(int width, int height, double softness, const ThresholdAt& thresholdAt) {
  auto maps = std::make_shared<Maps>();
  maps->luma = mapOf(width, height, thresholdAt);
  maps->chroma = mapOf(width / 2, height / 2, thresholdAt);
  maps->softness = std::max(1, static_cast<int>(std::lround(softness * kWay)));
  return [maps](const media::Picture& below, const media::Picture& above, double progress,
                media::Picture& out) { paint(*maps, below, above, progress, out); };
}

}  // namespace kvo::engine
