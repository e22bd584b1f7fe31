// Drawing of one picture into another: moved, scaled, or turned in space.
#pragma once

#include "media/colour.h"
#include "media/picture.h"

#include <array>
#include <opencv2/core.hpp>

namespace kvo::engine {

/// A part of a picture, in pixels; edges may lie between pixels.
struct Area {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// The whole of a picture.
Area wholeOf(const media::Planes& picture);

/// Upper left, upper right, lower right, lower left.
using Corners = std::array<cv::Point2d, 4>;

/// `out` becomes `picture`; both are of one size and kind.
void drawAll(const media::Picture& picture, media::Canvas& out);

/// Draws a part of `picture` at `x`, `y` without scaling. What falls outside is left out; places are rounded
/// to even pixels.
void drawMoved(const media::Picture& picture, const Area& part, double x, double y, media::Canvas& out);

/// Draws a part of `picture` over the area `place`, scaled. Within `out`'s edges, by its alpha where it has
/// one. Places are rounded to whole pixels; samples of chroma that are covered in part are mixed.
void drawScaled(const media::Picture& picture, const Area& part, const Area& place, media::Canvas& out);

struct Look {
  double opacity = 1;  ///< 0 to 1
  double light = 1;    ///< 0 black, 1 as it is, 2 half way to white
};

/// Draws a part of `picture` so that its corners come to lie at `corners`, in perspective, with smooth edges.
void drawTurned(const media::Picture& picture, const Area& part, const Corners& corners, const Look& look,
                media::Canvas& out);

/// All of `out` becomes one colour.
void drawColour(const media::YuvColour& colour, media::Canvas& out);

}  // namespace kvo::engine
