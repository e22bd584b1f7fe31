#include "engine/effects/palette/palette_effect.h"

#include "engine/effects/by_image.h"
#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"
#include "engine/effects/registry.h"
#include "engine/transitions/fade.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

constexpr unsigned kOwnColours = 1;  // it prints in the colours itself; others are tinted by them
constexpr unsigned kDirected = 2;    // it has strokes or light that come from somewhere

struct Row {
  std::string_view name;
  void (*draw)(cv::Mat& bgr, const Style& style);
  unsigned traits = 0;
};

constexpr std::array<Row, 48> kRows = {{
    {"Accents", palette::accents},
    {"Angled Strokes", palette::angledStrokes, kDirected},
    {"BasRelief", palette::basRelief, kOwnColours | kDirected},
    {"Mosaic", palette::mosaic, kDirected},
    {"ChalkCharcoal", palette::chalkCharcoal, kOwnColours | kDirected},
    {"Charcoal", palette::charcoal, kOwnColours | kDirected},
    {"Chrome", palette::chrome, kDirected},
    {"ColoredPencil", palette::colouredPencil, kDirected},
    {"Craquelure", palette::craquelure, kDirected},
    {"Crosshatch", palette::crosshatch, kDirected},
    {"Cutout", palette::cutout},
    {"DarkStrokes", palette::darkStrokes, kDirected},
    {"DiffuseGlow", palette::diffuseGlow},
    {"Dry Brush", palette::dryBrush},
    {"Emboss", palette::emboss, kDirected},
    {"FilmGrain", palette::filmGrain},
    {"InkOutline", palette::inkOutline, kDirected},
    {"NotePaper", palette::notePaper, kOwnColours | kDirected},
    {"Fresco", palette::fresco},
    {"GlowingEdges", palette::glowingEdges},
    {"Grain", palette::grain},
    {"HalfTone", palette::halfTone, kOwnColours | kDirected},
    {"Patchwork", palette::patchwork, kDirected},
    {"Neon Glow", palette::neonGlow, kOwnColours},
    {"PaintDaubs", palette::paintDaubs},
    {"PalletteKnife", palette::paletteKnife, kDirected},
    {"Plaster", palette::plaster, kOwnColours | kDirected},
    {"PlasticWrap", palette::plasticWrap, kDirected},
    {"PosterEdges", palette::posterEdges},
    {"Ripple", palette::ripple, kDirected},
    {"Reticulation", palette::reticulation, kOwnColours},
    {"SmudgeStick", palette::smudgeStick, kDirected},
    {"Sponge", palette::sponge},
    {"SpraydStroks", palette::sprayedStrokes, kDirected},
    {"Stamp", palette::stamp, kOwnColours},
    {"Photocopy", palette::photocopy, kOwnColours},
    {"Sumie", palette::sumie, kDirected},
    {"GraphicPen", palette::graphicPen, kOwnColours | kDirected},
    {"TornEdges", palette::tornEdges, kOwnColours | kDirected},
    {"Watercolor", palette::watercolor},
    {"WaterPaper", palette::waterPaper, kDirected},
    {"StainedGlass", palette::stainedGlass},
    {"Glass", palette::glass, kDirected},
    {"Texturizer", palette::texturizer, kDirected},
    {"Underpainting", palette::underpainting, kDirected},
    {"ConteCrayon", palette::conteCrayon, kOwnColours},
    {"RoughPastel", palette::roughPastel, kDirected},
    {"Spatter", palette::spatter},
}};

constexpr std::array<std::string_view, kRows.size()> namesOf() {
  std::array<std::string_view, kRows.size()> names{};
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = kRows[i].name;
  return names;
}
constexpr auto kNames = namesOf();

constexpr double kTint = 0.35;

// The darks take on the fore colour, the lights the back colour, what lies between the extra colour.
void tint(cv::Mat& bgr, const Style& style) {
  const cv::Mat grey = greyOf(bgr);
  cv::Mat share;
  if (style.hasInk) {
    grey.convertTo(share, CV_8U, -2, 255);
    paintOver(bgr, share, style.ink, kTint);
  }
  if (style.hasPaper) {
    grey.convertTo(share, CV_8U, 2, -255);
    paintOver(bgr, share, style.paper, kTint);
  }
  if (style.hasExtra) {
    cv::absdiff(grey, cv::Scalar(128), share);
    share.convertTo(share, CV_8U, -3, 255);
    paintOver(bgr, share, style.extra, kTint);
  }
}

void darkenEdges(cv::Mat& bgr, double share) {
  if (share <= 0) return;
  cv::Mat mask(bgr.size(), CV_8U);
  for (int y = 0; y < bgr.rows; ++y) {
    for (int x = 0; x < bgr.cols; ++x) {
      const double away = std::hypot(2.0 * x / bgr.cols - 1, 2.0 * y / bgr.rows - 1);
      mask.ptr<std::uint8_t>(y)[x] = static_cast<std::uint8_t>(std::lround(127 * std::min(away * away, 2.0)));
    }
  }
  paintOver(bgr, mask, {0, 0, 0}, share);
}

// What every effect has in common, by controls 5 to 8 and the texture colour.
void finish(cv::Mat& bgr, const cv::Mat& source, const Style& style) {
  if (style.saturation > 0) {
    cv::Mat grey;
    cv::cvtColor(greyOf(source), grey, cv::COLOR_GRAY2BGR);
    cv::Mat colour;
    cv::subtract(source, grey, colour, cv::noArray(), CV_16S);
    cv::scaleAdd(colour, 1.5 * style.saturation, cv::Mat_<cv::Vec3s>(bgr), colour);
    colour.convertTo(bgr, CV_8U);
  }
  if (style.brightness > 0) bgr.convertTo(bgr, -1, 1, 110 * style.brightness);
  const cv::Mat ground = style.canvas > 0 || style.hasTexture ? weave(bgr.size(), 3 * style.unit) : cv::Mat();
  if (style.hasTexture) paintOver(bgr, ~ground, style.texture, 0.25);
  if (style.canvas > 0) shade(bgr, lit(ground, 135, 1, 1), style.canvas);
  if (style.grain > 0) addNoise(bgr, noise(bgr.size(), style.unit, 40 * style.grain, 61));
}

const Row* rowOf(const Params& params) {
  const double id = params.number("effectid", 0, 0);
  if (!(id >= 1 && id <= static_cast<double>(kRows.size()))) return nullptr;
  return &kRows[static_cast<std::size_t>(id) - 1];
}

}  // namespace

std::span<const std::string_view> paletteNames() { return kNames; }

// The grains are others in each frame.
bool paletteEffectMoves(const Params& params) {
  const auto* row = rowOf(params);
  return row != nullptr && (row->draw == palette::filmGrain || row->draw == palette::grain);
}

// The parameters "EffectID" (1 to 48), "Transparency" (the level: 0 leaves the picture as it is, 100 or none
// is the whole effect), "Control1Value" to "Control8Value" (see Style), "RGBForeColor", "RGBBackColor",
// "RGBExtraColor" and "TextureURL" (colours). An id that is not known changes nothing.
DrawEffect makePaletteEffect(const Params& params, int /*width*/, int height) {
  const auto* row = rowOf(params);
  return [params, row, height](const media::Picture& picture, const EffectMoment& moment) {
    const double level = params.number("transparency", moment.time, 100, 0, 100) / 100;
    if (row == nullptr || level <= 0) return picture;
    const auto style = styleOf(params, moment.time, height);
    auto out = byImage(picture, [&](cv::Mat& bgr) {
      const cv::Mat source = style.saturation > 0 ? bgr.clone() : cv::Mat();
      row->draw(bgr, style);
      if ((row->traits & kOwnColours) == 0) tint(bgr, style);
      if ((row->traits & kDirected) == 0) darkenEdges(bgr, style.angle / 45);
      finish(bgr, source, style);
    });
    if (out && level < 1) mixPictures(picture, out, level, out);
    return out;
  };
}

}  // namespace kvo::engine
