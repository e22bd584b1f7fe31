#include "engine/transitions/fade.h"

#include "media/pixel_rows.h"

#include <cmath>

namespace kvo::engine {
namespace {

void drawFade(const media::Picture& below, const media::Picture& above, double progress,
              media::Picture& out) {
  const int share = static_cast<int>(std::lround(progress * media::kFullShare));
  for (int plane = 0; plane < 3; ++plane) {
    const int width = plane == 0 ? out.width() : out.width() / 2;
    const int height = plane == 0 ? out.height() : out.height() / 2;
    for (int y = 0; y < height; ++y) {
      media::mixRow(below.plane(plane) + static_cast<std::ptrdiff_t>(y) * below.stride(plane),
                    above.plane(plane) + static_cast<std::ptrdiff_t>(y) * above.stride(plane),
                    out.plane(plane) + static_cast<std::ptrdiff_t>(y) * out.stride(plane),
                    static_cast<std::size_t>(width), share);
    }
  }
}

}  // namespace

PaintTransition makeFade(const TransitionParams& /*params*/, int /*width*/, int /*height*/) {
  return drawFade;
}

}  // namespace kvo::engine
