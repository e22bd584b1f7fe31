// Placing: the upper picture, or a part of it, stands in a rectangle over the lower one. The rectangle may
// move and grow by keyframes: bounces, and picture-in-picture.
#include "engine/picture/drawing.h"
#include "engine/transitions/registry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace kvo::engine {
namespace {

constexpr double kFar = 1e5;  // pixels; further off nothing is seen

using Names = std::array<const char*, 4>;
constexpr Names kPlace = {"offsetx", "offsety", "width", "height"};
constexpr Names kPart = {"srcoffsetx", "srcoffsety", "srcwidth", "srcheight"};

bool hasSteps(const Param* param) {
  return param != nullptr && std::any_of(param->number.keys.begin(), param->number.keys.end(),
                                         [](const auto& key) { return !key.linear; });
}

// A picture that is placed by steps shows, up to each time at which any of them stands, what stands there:
// the times part the way, and each part has a place of its own, the last the whole.
double stepAhead(const Params& params, double time) {
  std::optional<double> next;
  for (const auto& names : {kPlace, kPart}) {
    for (const auto* name : names) {
      const auto* param = params.find(name);
      if (!hasSteps(param)) continue;
      for (const auto& key : param->number.keys) {
        if (!key.linear && key.time > time && (!next || key.time < *next)) next = key.time;
      }
    }
  }
  return next.value_or(time);
}

Area areaOf(const Params& params, double time, int width, int height, const Names& names) {
  const double step = stepAhead(params, time);
  const auto number = [&](const char* name, double otherwise) {
    return params.number(name, hasSteps(params.find(name)) ? step : time, otherwise, -kFar, kFar);
  };
  return {number(names[0], 0), number(names[1], 0), number(names[2], width), number(names[3], height)};
}

bool isWhole(const Area& area, int width, int height) {
  return std::fabs(area.x) < 0.5 && std::fabs(area.y) < 0.5 && std::fabs(area.width - width) < 1.5 &&
         std::fabs(area.height - height) < 1.5;
}

bool placesAll(const Params& params, double time, int width, int height) {
  return isWhole(areaOf(params, time, width, height, kPlace), width, height) &&
         isWhole(areaOf(params, time, width, height, kPart), width, height);
}

// The parameters "OffsetX", "OffsetY", "Width", "Height" are the rectangle, "SrcOffsetX" and so on the part
// of the upper picture, in pixels of the movie; all of it where they are not given.
Result<PaintTransition> makePlacing(const Params& params, int width, int height) {
  return PaintTransition([=](const media::Picture& below, const media::Picture& above, const Moment& moment,
                             media::Canvas& out) {
    drawAll(below, out);
    drawScaled(above, areaOf(params, moment.time, width, height, kPart),
               areaOf(params, moment.time, width, height, kPlace), out);
  });
}

}  // namespace

const DrawnTransition transitions::Placing{makePlacing, placesAll};
const DrawnTransition transitions::Compositor{makePlacing, placesAll};

}  // namespace kvo::engine
