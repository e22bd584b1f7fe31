#include "ui/region.h"

#include "ui/dib_section.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace kvo {
namespace {

struct Span {
  int left = 0;
  int right = 0;
};

// Puts bands together, each below the one before.
class BandsOfRegion {
 public:
  void add(int top, int bottom, std::span<const Span> spans) {
    const auto begin = region_.rectangles.size();
    for (const auto& span : spans) region_.rectangles.push_back({span.left, top, span.right, bottom});
    if (region_.rectangles.size() == begin) return;
    if (!growLast(begin)) lastBand_ = begin;
  }

  Region take() { return std::move(region_); }

 private:
  // Where the new band, which begins at `begin`, continues the last one, that one takes its rows.
  bool growLast(std::size_t begin) {
    auto& all = region_.rectangles;
    const auto isContinued = [](const RegionRectangle& above, const RegionRectangle& below) {
      return above.left == below.left && above.right == below.right && above.bottom == below.top;
    };
    const auto at = [&](std::size_t i) { return all.begin() + static_cast<std::ptrdiff_t>(i); };
    if (!std::equal(at(lastBand_), at(begin), at(begin), all.end(), isContinued)) return false;
    for (auto i = lastBand_; i < begin; ++i) all[i].bottom = all[begin].bottom;
    all.erase(at(begin), all.end());
    return true;
  }

  Region region_;
  std::size_t lastBand_ = 0;  // index of its first rectangle
};

}  // namespace

RegionRectangle boundsOf(const Region& region) {
  if (region.rectangles.empty()) return {};
  auto bounds = region.rectangles.front();
  for (const auto& r : region.rectangles) {
    bounds.left = std::min(bounds.left, r.left);
    bounds.right = std::max(bounds.right, r.right);
  }
  bounds.bottom = region.rectangles.back().bottom;
  return bounds;
}

Region regionWithout(const cDIBSection& surface, std::uint32_t key) {
  const std::array<std::uint8_t, 3> bgr = {static_cast<std::uint8_t>(key >> 16U),
                                           static_cast<std::uint8_t>(key >> 8U),
                                           static_cast<std::uint8_t>(key)};
  BandsOfRegion bands;
  std::vector<Span> spans;
  for (int y = 0; y < surface.dib_height(); ++y) {
    const auto row = surface.row(y);
    spans.clear();
    for (int x = 0; x < surface.dib_width(); ++x) {
      const auto* pixel = row.data() + static_cast<std::size_t>(x) * 3;
      if (std::equal(bgr.begin(), bgr.end(), pixel)) continue;
      if (!spans.empty() && spans.back().right == x) {
        ++spans.back().right;
      } else {
        spans.push_back({x, x + 1});
      }
    }
    bands.add(y, y + 1, spans);
  }
  return bands.take();
}

Region roundRectRegion(int width, int height, int cornerWidth, int cornerHeight) {
  const double across = std::clamp(cornerWidth, 0, std::max(width, 0)) / 2.0;
  const double down = std::clamp(cornerHeight, 0, std::max(height, 0)) / 2.0;
  BandsOfRegion bands;
  for (int y = 0; y < height; ++y) {
    // A pixel belongs to the shape when its centre does.
    const double fromEdge = std::min(y, height - 1 - y) + 0.5;
    double inset = 0;
    if (fromEdge < down) {
      const double fromCentre = (down - fromEdge) / down;
      inset = across * (1 - std::sqrt(1 - fromCentre * fromCentre));
    }
    const int left = static_cast<int>(std::ceil(inset - 0.5));
    const Span span{left, width - left};
    if (span.left < span.right) bands.add(y, y + 1, {&span, 1});
  }
  return bands.take();
}

}  // namespace kvo
