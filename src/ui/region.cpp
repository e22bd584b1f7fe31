#include "ui/region.h"

#include "ui/dib_section.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace kvo {
namespace {

constexpr std::uint32_t kHeadBytes = 32;
constexpr std::uint32_t kRectangleBytes = 16;
constexpr std::uint32_t kKindRectangles = 1;  // RDH_RECTANGLES

struct Span {
  int left = 0;
  int right = 0;
};

// Puts bands together, each below the one before.
class BandsOfRegion {
 public:
  void add(int top, int bottom, std::span<const Span> spans) {
    const auto begin = region_.rectangles.size();
    for (const auto& span : spans) {
      auto& all = region_.rectangles;
      if (all.size() > begin && all.back().right == span.left) {
        all.back().right = span.right;
      } else {
        all.push_back({span.left, top, span.right, bottom});
      }
    }
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

void add(std::string& out, std::uint32_t number) {
  for (unsigned shift = 0; shift < 32; shift += 8) out += static_cast<char>(number >> shift & 0xFFU);
}

void add(std::string& out, const RegionRectangle& r) {
  for (const int side : {r.left, r.top, r.right, r.bottom}) add(out, static_cast<std::uint32_t>(side));
}

std::uint32_t numberAt(std::string_view data, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 4; i-- > 0;) number = number << 8U | static_cast<unsigned char>(data[at + i]);
  return number;
}

RegionRectangle rectangleAt(std::string_view data, std::size_t at) {
  const auto side = [&](std::size_t i) { return static_cast<int>(numberAt(data, at + 4 * i)); };
  return {side(0), side(1), side(2), side(3)};
}

bool follows(const RegionRectangle& next, const RegionRectangle& last) {
  const bool sameBand = next.top == last.top && next.bottom == last.bottom && next.left >= last.right;
  return sameBand || next.top >= last.bottom;
}

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

std::string regionData(const Region& region) {
  const auto count = static_cast<std::uint32_t>(region.rectangles.size());
  std::string out;
  out.reserve(kHeadBytes + std::size_t{count} * kRectangleBytes);
  add(out, kHeadBytes);
  add(out, kKindRectangles);
  add(out, count);
  add(out, count * kRectangleBytes);
  add(out, boundsOf(region));
  for (const auto& r : region.rectangles) add(out, r);
  return out;
}

std::optional<Region> regionOfData(std::string_view data) {
  if (data.size() < kHeadBytes || numberAt(data, 0) != kHeadBytes || numberAt(data, 4) != kKindRectangles)
    return {};
  const std::size_t count = numberAt(data, 8);
  if ((data.size() - kHeadBytes) / kRectangleBytes < count) return {};
  BandsOfRegion bands;
  std::vector<Span> spans;
  RegionRectangle last;
  for (std::size_t i = 0; i < count; ++i) {
    const auto next = rectangleAt(data, kHeadBytes + i * kRectangleBytes);
    if (next.left >= next.right || next.top >= next.bottom || (i > 0 && !follows(next, last))) return {};
    if (i > 0 && next.top != last.top) {
      bands.add(last.top, last.bottom, spans);
      spans.clear();
    }
    spans.push_back({next.left, next.right});
    last = next;
  }
  bands.add(last.top, last.bottom, spans);
  return bands.take();
}

}  // namespace kvo
