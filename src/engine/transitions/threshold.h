// Transitions by thresholds: each pixel changes over at a progress of its own. A map of the thresholds is
// made once; a frame then costs one pass over the pictures.
#pragma once

#include "engine/transitions/registry.h"
#include "media/colour.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace kvo::engine {

constexpr int kWay = 65535;  ///< thresholds are kept in 16 bits

/// The threshold of a point, 0 (changes first) to 1 (last). Coordinates run from 0 to 1 across the picture.
using ThresholdAt = std::function<double(double x, double y)>;

/// Edges are `softness` wide, as a share of the whole way; what changes at once gets 0.
PaintTransition byThresholds(int width, int height, double softness, const ThresholdAt& thresholdAt);

/// The softness that makes an edge about a pixel wide.
constexpr double pixelSoftness(int pixels) { return 1.0 / pixels; }

/// A line between the two pictures.
struct Border {
  double width = 0;  ///< as a share of the whole way
  media::YuvColour colour{};
};

/// The thresholds of every pixel of a plane, row by row.
struct ThresholdMap {
  int width = 0;
  int height = 0;
  std::vector<std::uint16_t> values{};  ///< 0 to 65535
};

/// `map` is of the size of the pictures.
PaintTransition byThresholdMap(ThresholdMap map, double softness, const std::optional<Border>& border);

}  // namespace kvo::engine
