// Fade to black: the clip goes dark over its last two seconds, or its last half if it is short.
#include "engine/effects/registry.h"
#include "engine/picture/planes.h"

#include <algorithm>

namespace kvo::engine {
namespace {

DrawEffect makeFadeToBlack(const Params& /*params*/, int /*width*/, int /*height*/) {
  return [](const media::Picture& picture, const EffectMoment& moment) {
    constexpr double kLongest = 2;  // seconds
    const double fade = std::min(kLongest, moment.length / 2);
    const double left = fade > 0 ? std::clamp((moment.length - moment.time) / fade, 0.0, 1.0) : 1;
    if (left >= 1) return picture;
    auto out = copyOf(picture);
    for (int plane = 0; plane < 3; ++plane) {
      const double black = media::Picture::blackOf(plane);
      auto samples = planeOf(out, plane);
      samples.convertTo(samples, -1, left, black * (1 - left));
    }
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::FadeToBlack{makeFadeToBlack, always};
const DrawnEffect effects::Fade{makeFadeToBlack, always};

}  // namespace kvo::engine
