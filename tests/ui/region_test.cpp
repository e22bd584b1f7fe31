// Shapes of windows: made from masks, given to windows.
#include "ui/dib_section.h"
#include "ui/dib_section_region.h"

#include <QImage>
#include <QWidget>
#include <cmath>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using Pixels = std::vector<std::string>;  // rows; '#' belongs to the shape

cDIBSection surfaceOf(const Pixels& pixels) {
  QImage mask(static_cast<int>(pixels[0].size()), static_cast<int>(pixels.size()), QImage::Format_RGB32);
  mask.fill(0xFF000000);
  for (std::size_t y = 0; y < pixels.size(); ++y) {
    for (std::size_t x = 0; x < pixels[y].size(); ++x) {
      if (pixels[y][x] == '#') mask.setPixel(static_cast<int>(x), static_cast<int>(y), 0xFFFFFFFF);
    }
  }
  cDIBSection surface;
  EXPECT_TRUE(surface.CreateFromPicture(mask));
  return surface;
}

// The rectangles of a region as pixels of a mask's size; one that is covered twice becomes '2'.
Pixels covered(const Region& region, Pixels pixels) {
  for (auto& row : pixels) row.assign(row.size(), '.');
  for (const auto& r : region.rectangles) {
    for (auto y = r.top; y < r.bottom; ++y) {
      for (auto x = r.left; x < r.right; ++x) {
        auto& pixel = pixels.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x));
        pixel = pixel == '.' ? '#' : '2';
      }
    }
  }
  return pixels;
}

TEST(Region, CoversWhatTheMaskDoesNotKeyOutInTheFewestRectangles) {
  Pixels ring(80, std::string(80, '.'));
  for (int i = 0; i < 80 * 80; ++i) {
    const double radius = std::hypot(i % 80 - 39.5, i / 80 - 39.5);
    if (radius < 38 && radius > 20)
      ring[static_cast<std::size_t>(i / 80)][static_cast<std::size_t>(i % 80)] = '#';
  }
  const struct {
    Pixels mask;
    int rectangles;  // -1: not counted
    RegionRectangle bounds;
  } rows[] = {{{"###", "###"}, 1, {0, 0, 3, 2}},
              {{"...", "..."}, 0, {0, 0, 0, 0}},
              {{"#", ".", "."}, 1, {0, 0, 1, 1}},
              {{".", ".", "#"}, 1, {0, 2, 1, 3}},
              {{"#...#", "#...#", "#####"}, 3, {0, 0, 5, 3}},
              {{"####", "#..#", "#..#", "####"}, 4, {0, 0, 4, 4}},
              {{"##", "..", "##"}, 2, {0, 0, 2, 3}},
              {{"#..", "##.", ".##"}, 3, {0, 0, 3, 3}},
              {ring, -1, {2, 2, 78, 78}}};
  for (const auto& row : rows) {
    const auto region = regionWithout(surfaceOf(row.mask), 0);
    EXPECT_EQ(covered(region, row.mask), row.mask);
    const auto count = static_cast<int>(region.rectangles.size());
    EXPECT_EQ(count, row.rectangles < 0 ? count : row.rectangles) << row.mask[0];
    EXPECT_EQ(boundsOf(region), row.bounds) << row.mask[0];
    EXPECT_EQ(regionOfData(regionData(region)), region) << row.mask[0];
  }
}

TEST(Region, DataAreThePublishedFormToTheByte) {
  const auto data = regionData(regionWithout(surfaceOf({"##", "#.", "#."}), 0));
  const std::uint32_t expected[] = {32, 1, 2, 32, 0, 0, 2, 3, 0, 0, 2, 1, 0, 1, 1, 3};
  EXPECT_EQ(data, std::string(reinterpret_cast<const char*>(expected), sizeof expected));
}

TEST(Region, KeyIsOneColourWithRedInTheLowByte) {
  cDIBSection surface;
  ASSERT_TRUE(surface.Create(4, 1));
  const std::uint8_t bgr[] = {3, 2, 1, 3, 2, 2, 3, 3, 1, 4, 2, 1};
  std::copy(std::begin(bgr), std::end(bgr), surface.DIBSectionBitsPtr().begin());
  EXPECT_EQ(regionWithout(surface, 0x030201).rectangles, (std::vector<RegionRectangle>{{1, 0, 4, 1}}));
}

std::string dataOf(const std::vector<std::int32_t>& rectangles, std::uint32_t kind = 1,
                   std::uint32_t size = 32) {
  const auto bytes = static_cast<std::uint32_t>(rectangles.size() * 4);
  const std::uint32_t head[] = {size, kind, bytes / 16, bytes, 0, 0, 0, 0};
  std::string data(reinterpret_cast<const char*>(head), sizeof head);
  return data.append(reinterpret_cast<const char*>(rectangles.data()), bytes);
}

TEST(Region, DataThatAreNoRegionAreRefused) {
  const auto good = dataOf({0, 0, 2, 1, 3, 0, 4, 1, -5, 1, 2, 2});
  ASSERT_TRUE(regionOfData(good));
  for (std::size_t length = 0; length < good.size(); ++length)
    EXPECT_FALSE(regionOfData(std::string_view(good).substr(0, length))) << length;
  auto endless = good;
  std::fill_n(endless.begin() + 8, 4, '\xFF');
  const std::pair<const char*, std::string> rows[] = {
      {"another kind", dataOf({0, 0, 1, 1}, 2)},
      {"another head", dataOf({0, 0, 1, 1}, 1, 33)},
      {"more rectangles than bytes", endless},
      {"no width", dataOf({1, 0, 1, 1})},
      {"upside down", dataOf({0, 1, 1, 0})},
      {"overlap in a band", dataOf({0, 0, 3, 1, 2, 0, 4, 1})},
      {"bands that overlap", dataOf({0, 0, 3, 2, 0, 1, 3, 3})},
      {"from the bottom up", dataOf({0, 4, 3, 5, 0, 1, 3, 3})},
  };
  for (const auto& [what, data] : rows) EXPECT_FALSE(regionOfData(data)) << what;
  const auto split = regionOfData(dataOf({0, 0, 1, 1, 1, 0, 4, 1, 0, 1, 4, 3}));
  ASSERT_TRUE(split);
  EXPECT_EQ(split->rectangles, (std::vector<RegionRectangle>{{0, 0, 4, 3}})) << "brought to the fewest";
}

TEST(Region, RoundCornersAreQuartersOfAnEllipse) {
  EXPECT_EQ(roundRectRegion(30, 20, 0, 0).rectangles, (std::vector<RegionRectangle>{{0, 0, 30, 20}}));
  EXPECT_EQ(roundRectRegion(0, 20, 4, 4), Region{});
  for (const auto& [width, height, across, down] :
       {std::tuple{562, 410, 134, 90}, {440, 262, 284, 154}, {40, 30, 90, 90}}) {
    const auto region = roundRectRegion(width, height, across, down);
    double area = 0;
    for (const auto& r : region.rectangles) {
      area += (r.right - r.left) * (r.bottom - r.top);
      EXPECT_EQ(r.left + r.right, width);
    }
    const double cornerArea = std::min(across, width) * std::min(down, height) * (1 - std::acos(-1) / 4);
    EXPECT_NEAR(area, width * height - cornerArea, std::max(3.0, 0.001 * width * height)) << width;
    EXPECT_EQ(boundsOf(region), (RegionRectangle{0, 0, width, height})) << width;
  }
}

TEST(DibSectionRegion, AWidgetTakesTheShapeAsItsMask) {
  QWidget widget;
  ShapedWidget window(widget);
  cDIBSectionRegion region;
  ASSERT_TRUE(region.Create(surfaceOf({"##.", "###"}), 0));
  region.Applied(window, true);
  EXPECT_EQ(widget.mask(), QRegion(0, 0, 2, 1) + QRegion(0, 1, 3, 1));
  region.Applied(window, false);
  EXPECT_TRUE(widget.mask().isEmpty());
  ASSERT_TRUE(region.Create(surfaceOf({"..."}), 0));
  region.Applied(window, true);
  EXPECT_FALSE(widget.mask().isEmpty());
  EXPECT_FALSE(widget.mask().intersects(QRect(0, 0, 3, 1))) << "nothing is left to be seen";
}

TEST(DibSection, RowsAreFilledUpToFourBytes) {
  cDIBSection surface;
  for (const auto& [width, bytes] : {std::pair{1, 4U}, {4, 12U}, {5, 16U}, {6, 20U}}) {
    ASSERT_TRUE(surface.Create(width, 3));
    EXPECT_EQ(surface.BytesPerScanLine(), bytes);
    EXPECT_EQ(surface.DIBSectionBitsPtr().size(), 3 * bytes);
  }
  for (const auto& [width, height] :
       {std::pair{0, 4}, {4, 0}, {-1, 4}, {20000, 20000}, {2147483647, 2147483647}}) {
    ASSERT_TRUE(surface.Create(2, 2));
    EXPECT_FALSE(surface.Create(width, height)) << width;
    EXPECT_EQ(surface.dib_width(), 0);
    EXPECT_TRUE(surface.DIBSectionBitsPtr().empty());
  }
}

TEST(DibSection, WhatIsTransparentInAPictureIsBlack) {
  QImage picture(2, 1, QImage::Format_ARGB32);
  picture.setPixel(0, 0, 0x00FFFFFF);
  picture.setPixel(1, 0, 0xFF010203);
  cDIBSection surface;
  ASSERT_TRUE(surface.CreateFromPicture(picture));
  const auto row = surface.row(0);
  EXPECT_EQ(std::vector(row.begin(), row.end()), (std::vector<std::uint8_t>{0, 0, 0, 3, 2, 1}));
}

}  // namespace
}  // namespace kvo
