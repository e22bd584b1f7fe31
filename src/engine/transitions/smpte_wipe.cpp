// The wipes of the SMPTE mask table: a shape by its code, or by the lights and darks of a picture, with a
// border between the two pictures, repeated across and down.
#include "engine/transitions/registry.h"
#include "engine/transitions/smpte_patterns.h"
#include "engine/transitions/threshold.h"
#include "media/scaler.h"
#include "media/video_reader.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {
namespace {

// Values of any range, brought to 0 to 65535; and how many pixels the change takes from first to last.
struct Field {
  ThresholdMap map;
  double pixels = 1;
};

Field spread(int width, int height, const std::vector<float>& values) {
  const auto [least, most] = std::minmax_element(values.begin(), values.end());
  const float range = *most > *least ? *most - *least : 1;
  Field field{{width, height, {}}, 1};
  field.map.values.reserve(values.size());
  for (const float v : values)
    field.map.values.push_back(static_cast<std::uint16_t>(std::lround((v - *least) / range * kWay)));
  // The middle slope tells how wide a pixel is on the way; jumps between cells are few and do not count.
  std::vector<int> slopes;
  for (int y = height / 16; y + 1 < height; y += std::max(1, height / 64)) {
    for (int x = width / 16; x + 1 < width; x += std::max(1, width / 64)) {
      const auto* here = field.map.values.data() + static_cast<std::ptrdiff_t>(y) * width + x;
      slopes.push_back(static_cast<int>(std::hypot(here[1] - here[0], here[width] - here[0])));
    }
  }
  if (slopes.empty()) return field;
  const auto middle = slopes.begin() + static_cast<std::ptrdiff_t>(slopes.size() / 2);
  std::nth_element(slopes.begin(), middle, slopes.end());
  field.pixels = *middle > 0 ? static_cast<double>(kWay) / *middle : std::max(width, height);
  return field;
}

Result<media::Picture> maskPicture(const std::string& path, int width, int height) {
  auto reader = media::VideoReader::open(path, 1);
  if (!reader) return Error{"the mask of a transition: " + reader.error().text};
  const auto frame = reader->frameAt(0);
  if (!frame) return Error{"the mask of a transition: " + frame.error().text};
  return media::Scaler(width, height).place(*frame, media::Fit::Stretch);
}

Result<Field> fieldOf(const Params& params, int width, int height) {
  std::vector<float> values;
  values.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  const double across = params.count("replicatex", 1);
  const double down = params.count("replicatey", 1);
  const auto* name = params.find("maskname");
  if (name != nullptr && !name->text.empty()) {
    const auto mask = maskPicture(name->text, width, height);
    if (!mask) return mask.error();
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const auto fromX = static_cast<int>(x * across) % width;
        const auto fromY = static_cast<int>(y * down) % height;
        values.push_back(mask->row(0, fromY)[fromX]);
      }
    }
    return spread(width, height, values);
  }
  const auto pattern = smptePattern(static_cast<int>(params.number("masknum", 0, 1, 0, 1000)),
                                    width / across / (height / down));
  const double scaleX = params.number("scalex", 0, 1, 0.01, 1000);
  const double scaleY = params.number("scaley", 0, 1, 0.01, 1000);
  const double offsetX = params.number("offsetx", 0, 0, -100, 100) / 100;
  const double offsetY = params.number("offsety", 0, 0, -100, 100) / 100;
  const auto inCell = [](double v, double offset, double scale) {
    return (v - std::floor(v) - 0.5 - offset) / scale + 0.5;
  };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      values.push_back(static_cast<float>(pattern(inCell((x + 0.5) / width * across, offsetX, scaleX),
                                                  inCell((y + 0.5) / height * down, offsetY, scaleY))));
    }
  }
  return spread(width, height, values);
}

// The parameters "MaskNum" or "MaskName" (a picture file: dark changes first), "BorderWidth" and
// "BorderSoftness" in pixels, "BorderColor", "ReplicateX" and "ReplicateY", "ScaleX", "ScaleY" (the shape's
// size), "OffsetX", "OffsetY" (its place, in hundredths of a cell).
Result<PaintTransition> makeSmpteWipe(const Params& params, int width, int height) {
  auto field = fieldOf(params, width, height);
  if (!field) return field.error();
  const double softness = params.number("bordersoftness", 0, 0, 0, 255) + 1;
  const double borderWidth = params.number("borderwidth", 0, 0, 0, 255);
  std::optional<Border> border;
  // A border whose colour was left empty is black; where a document speaks of no colour there is none.
  if (const auto* colour = params.find("bordercolor"); colour != nullptr && borderWidth > 0) {
    border = Border{borderWidth / field->pixels,
                    media::yuvOf(media::parseColour(colour->text).value_or(media::Colour{}), height)};
  }
  return byThresholdMap(std::move(field->map), softness / field->pixels, border);
}

}  // namespace

const DrawnTransition transitions::SmpteWipe{makeSmpteWipe};

}  // namespace kvo::engine
