// Motion blur: everything drawn out in one direction.
#include "engine/effects/registry.h"
#include "engine/effects/streaks.h"
#include "engine/picture/planes.h"
#include "engine/transitions/fade.h"

namespace kvo::engine {
namespace {

// The parameters "Strength" (pixels), "Direction" (degrees, clockwise from up), and "Add": the sharp picture
// shows through.
DrawEffect makeMotionBlur(const Params& params, int /*width*/, int /*height*/) {
  return [params](const media::Picture& picture, const EffectMoment& moment) {
    const double strength = params.number("strength", moment.time, 0, 0, 500);
    if (strength < 1) return picture;
    // From up, clockwise, to from the right, counter-clockwise.
    const double angle = 90 - params.number("direction", moment.time, 0, -3600, 3600);
    auto out = media::Canvas::makeLike(picture);
    for (int plane = 0; plane < out.planes(); ++plane) {
      const double length = media::Picture::isChroma(plane) ? strength / 2 : strength;
      streaks(planeOf(picture, plane), angle, length).copyTo(planeOf(out, plane));
    }
    if (params.number("add", moment.time, 0) > 0.5) {
      mixPictures(picture, out, 0.5, out);
    }
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::MotionBlur{makeMotionBlur};

}  // namespace kvo::engine
