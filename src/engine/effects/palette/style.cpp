#include "engine/effects/palette/style.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace kvo::engine {
namespace {

bool takeColour(const Params& params, std::string_view name, cv::Vec3b& colour) {
  const auto given = media::parseColour(params.word(name));
  if (given) colour = {given->blue, given->green, given->red};
  return given.has_value();
}

}  // namespace

Style styleOf(const Params& params, double time, int height) {
  const auto control = [&](int number) {
    return params.number("control" + std::to_string(number) + "value", time, 0, 0, 100) / 100;
  };
  Style style;
  style.size = 1 + 3 * control(1);
  style.strength = 1 + 2 * control(2);
  style.smoothness = 12 * control(3);
  style.angle = 45 * control(4);
  style.brightness = control(5);
  style.saturation = control(6);
  style.canvas = control(7);
  style.grain = control(8);
  style.hasInk = takeColour(params, "rgbforecolor", style.ink);
  style.hasPaper = takeColour(params, "rgbbackcolor", style.paper);
  style.hasExtra = takeColour(params, "rgbextracolor", style.extra);
  style.hasTexture = takeColour(params, "textureurl", style.texture);
  style.unit = std::max(height / 360.0, 0.1);
  style.seed = static_cast<unsigned>(std::lround(time * 1000));
  return style;
}

int sized(const Style& style, double pixels) {
  return std::max(1, static_cast<int>(std::lround(pixels * style.size * style.unit)));
}

}  // namespace kvo::engine
