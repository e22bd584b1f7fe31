// Pictures in memory for tests of what is drawn.
#pragma once

#include "media/picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace kvo::test {

/// One value in every plane.
inline media::Picture plainPicture(int width, int height, int value) {
  auto picture = media::Canvas::make(width, height);
  for (int plane = 0; plane < 3; ++plane) picture.fill(plane, static_cast<std::uint8_t>(value));
  return share(std::move(picture));
}

/// A picture with something of everything: a ramp across, a round spot, a box, stripes and some noise, in
/// colours.
inline media::Picture scene(int width, int height) {
  auto picture = media::Canvas::make(width, height);
  unsigned random = 1;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      int luma = 60 + 110 * x / width;
      if (std::hypot(x - width * 0.7, y - height * 0.3) < height * 0.2) luma = 220;
      if (x > width / 8 && x < width / 3 && y > height / 2 && y < height * 7 / 8) luma = 30;
      if (y > height * 3 / 4 && (x / 6) % 2 == 0) luma = 180;
      random = random * 1664525U + 1013904223U;
      picture.row(0, y)[x] =
          static_cast<std::uint8_t>(std::clamp(luma + static_cast<int>(random >> 28U), 16, 235));
    }
  }
  for (int y = 0; y < height / 2; ++y) {
    for (int x = 0; x < width / 2; ++x) {
      picture.row(1, y)[x] = static_cast<std::uint8_t>(100 + 60 * y / height);
      picture.row(2, y)[x] = static_cast<std::uint8_t>(110 + 80 * x / width);
    }
  }
  return share(std::move(picture));
}

/// The mean of the differences of a plane's samples.
inline double difference(const media::Planes& a, const media::Planes& b, int plane = 0) {
  const int width = a.width(plane);
  double sum = 0;
  for (int y = 0; y < a.height(plane); ++y) {
    const auto* one = a.row(plane, y);  // asked for once a row: tests are not optimised
    const auto* other = b.row(plane, y);
    for (int x = 0; x < width; ++x) sum += std::abs(one[x] - other[x]);
  }
  return sum / (a.height(plane) * width);
}

inline double mean(const media::Planes& picture, int plane = 0) {
  double sum = 0;
  for (int y = 0; y < picture.height(plane); ++y) {
    for (int x = 0; x < picture.width(plane); ++x) sum += picture.row(plane, y)[x];
  }
  return sum / (picture.height(plane) * picture.width(plane));
}

/// How much neighbours differ across and down: the detail of a picture.
inline double detail(const media::Picture& picture, int right, int down) {
  double sum = 0;
  for (int y = 0; y + down < picture.height(); ++y) {
    for (int x = 0; x + right < picture.width(); ++x) {
      sum += std::abs(picture.row(0, y)[x] - picture.row(0, y + down)[x + right]);
    }
  }
  return sum / (picture.height() * picture.width());
}

}  // namespace kvo::test
