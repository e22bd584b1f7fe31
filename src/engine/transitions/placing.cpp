#include "engine/transitions/placing.h"

#include "engine/drawing.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {
namespace {

constexpr double kFar = 1e5;  // pixels; further off nothing is seen

Area areaOf(const Params& params, double time, int width, int height, const std::string& prefix) {
  const auto number = [&](const char* name, double otherwise) {
    return params.number(prefix + name, time, otherwise, -kFar, kFar);
  };
  return {number("offsetx", 0), number("offsety", 0), number("width", width), number("height", height)};
}

bool isWhole(const Area& area, int width, int height) {
  return std::fabs(area.x) < 0.5 && std::fabs(area.y) < 0.5 && std::fabs(area.width - width) < 1.5 &&
         std::fabs(area.height - height) < 1.5;
}

}  // namespace

bool placesAll(const Params& params, double time, int width, int height) {
  return isWhole(areaOf(params, time, width, height, ""), width, height) &&
         isWhole(areaOf(params, time, width, height, "src"), width, height);
}

Result<PaintTransition> makePlacing(const Params& params, int width, int height) {
  return PaintTransition([=](const media::Picture& below, const media::Picture& above, const Moment& moment,
                             media::Picture& out) {
    drawAll(below, out);
    drawScaled(above, areaOf(params, moment.time, width, height, "src"),
               areaOf(params, moment.time, width, height, ""), out);
  });
}

}  // namespace kvo::engine
