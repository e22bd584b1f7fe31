// What the controls and colours of a palette effect come to.
#pragma once

#include "engine/document/params.h"
#include "media/colour.h"

#include <opencv2/core.hpp>

namespace kvo::engine {

/// The eight controls mean the same for every effect of the palette. Each runs from 0 to 100; 0 is the effect
/// as it is by itself, and more is more.
struct Style {
  double size = 1;        ///< control 1: of strokes, cells, dots and grains, times what is usual
  double strength = 1;    ///< control 2: of edges, contrasts and reliefs, times what is usual
  double smoothness = 0;  ///< control 3: softness of what is drawn from, in pixels of a picture 360 high
  double angle = 0;       ///< control 4: degrees, up to 45, that strokes and light turn by; without
                          ///< either the edges darken
  double brightness = 0;  ///< control 5: 0 to 1, added
  double saturation = 0;  ///< control 6: 0 to 1, of the picture's own colours, added
  double canvas = 0;      ///< control 7: 0 to 1, relief of a woven ground
  double grain = 0;       ///< control 8: 0 to 1

  cv::Vec3b ink{0, 0, 0};            ///< fore colour, blue green red
  cv::Vec3b paper{255, 255, 255};    ///< back colour
  cv::Vec3b extra{128, 128, 128};    ///< extra colour
  cv::Vec3b texture{160, 160, 160};  ///< texture colour
  bool hasInk = false;
  bool hasPaper = false;
  bool hasExtra = false;
  bool hasTexture = false;

  double unit = 1;    ///< pixels for each of a picture 360 high
  unsigned seed = 0;  ///< of what differs from frame to frame
};

Style styleOf(const Params& params, double time, int height);

/// A length in pixels, times control 1; at least 1.
int sized(const Style& style, double pixels);

}  // namespace kvo::engine
