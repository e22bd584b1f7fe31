// Slide: whole pictures move aside, in bands that go opposite ways.
#include "engine/picture/drawing.h"
#include "engine/transitions/registry.h"

#include <algorithm>

namespace kvo::engine {
namespace {

using media::Canvas;
using media::Picture;

enum class Style { Over, Hide, Push, Swap };

Style styleOf(std::string_view word) {
  if (word == "hide") return Style::Hide;
  if (word == "push") return Style::Push;
  if (word == "swap") return Style::Swap;
  return Style::Over;
}

// One band of the pictures; `way` is 1 for rightward, -1 for leftward.
void slideBand(const Picture& below, const Picture& above, Style style, const Area& band, double way,
               double progress, Canvas& out) {
  const double width = band.width;
  switch (style) {
    case Style::Over:
      drawMoved(below, band, 0, band.y, out);
      drawMoved(above, band, -way * width * (1 - progress), band.y, out);
      return;
    case Style::Hide:
      drawMoved(above, band, 0, band.y, out);
      drawMoved(below, band, way * width * progress, band.y, out);
      return;
    case Style::Push: {
      const double moved = way * width * progress;
      drawMoved(below, band, moved, band.y, out);
      drawMoved(above, band, moved - way * width, band.y, out);
      return;
    }
    case Style::Swap: {
      // Both move aside until neither covers the other, then back with the second in front.
      const double aside = width * std::min(progress, 1 - progress);
      const bool secondInFront = progress > 0.5;
      const auto& front = secondInFront ? above : below;
      const auto& behind = secondInFront ? below : above;
      const double frontWay = secondInFront ? way : -way;
      drawMoved(behind, band, -frontWay * aside, band.y, out);
      drawMoved(front, band, frontWay * aside, band.y, out);
      return;
    }
  }
}

Result<PaintTransition> makeSlide(const Params& params, int /*width*/, int height) {
  const auto style = styleOf(params.word("slidestyle"));
  const int bands = std::min(static_cast<int>(params.count("bands", 1)), height / 2);
  return PaintTransition([=](const Picture& below, const Picture& above, const Moment& moment, Canvas& out) {
    const double bandHeight = static_cast<double>(out.height()) / bands;
    for (int band = 0; band < bands; ++band) {
      slideBand(below, above, style, {0, band * bandHeight, static_cast<double>(out.width()), bandHeight},
                band % 2 == 0 ? 1 : -1, moment.progress, out);
    }
  });
}

}  // namespace

const DrawnTransition transitions::Slide{makeSlide};

}  // namespace kvo::engine
