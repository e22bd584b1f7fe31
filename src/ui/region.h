// The shape of a window as data, and its form in files. No screen is needed for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

class cDIBSection;

/// Pixels from left to right - 1 and from top to bottom - 1.
struct RegionRectangle {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const RegionRectangle&) const = default;
};

/// A set of pixels in its one shortest form: bands from top to bottom, each of rectangles of the same top and
/// bottom from left to right that do not touch; bands that touch differ. An empty region has no rectangle.
struct Region {
  std::vector<RegionRectangle> rectangles;
  bool operator==(const Region&) const = default;
};

/// The least rectangle round a region; all 0 for an empty one.
RegionRectangle boundsOf(const Region& region);

/// The pixels of `surface` that do not have the colour `key`: red in the low byte, then green, then blue.
Region regionWithout(const cDIBSection& surface, std::uint32_t key);

/// width x height pixels from 0, 0, with corners that are quarters of an ellipse of cornerWidth x
/// cornerHeight; 0 of either leaves them square.
Region roundRectRegion(int width, int height, int cornerWidth, int cornerHeight);

/// The published form RGNDATA, as it stands in region files: a head of 32 bytes with kind, count and bounds,
/// then left, top, right, bottom of each rectangle; all 32-bit, low byte first.
std::string regionData(const Region& region);

/// Reads that form. Nothing when it is cut short, of another kind, or its rectangles are empty, overlap or do
/// not stand in bands.
std::optional<Region> regionOfData(std::string_view data);

}  // namespace kvo
