// Fade: the second picture shines through the first, ever more.
#include "engine/transitions/fade.h"

#include "engine/transitions/registry.h"
#include "media/pixel_rows.h"

#include <cmath>

namespace kvo::engine {

void mixPictures(const media::Planes& below, const media::Planes& above, double share, media::Canvas& out) {
  const int whole = static_cast<int>(std::lround(share * media::kFullShare));
  for (int plane = 0; plane < out.planes(); ++plane) {
    for (int y = 0; y < out.height(plane); ++y) {
      media::mixRow(below.row(plane, y), above.row(plane, y), out.row(plane, y),
                    static_cast<std::size_t>(out.width(plane)), whole);
    }
  }
}

namespace {

Result<PaintTransition> makeFade(const Params& /*params*/, int /*width*/, int /*height*/) {
  return PaintTransition([](const media::Picture& below, const media::Picture& above, const Moment& moment,
                            media::Canvas& out) { mixPictures(below, above, moment.progress, out); });
}

}  // namespace

const DrawnTransition transitions::Fade{makeFade};

}  // namespace kvo::engine
