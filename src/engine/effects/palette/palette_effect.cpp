#include "engine/effects/by_image.h"
#include "engine/effects/palette/families.h"
#include "engine/effects/palette/tools.h"
#include "engine/effects/registry.h"
#include "engine/transitions/fade.h"
#include "vocabulary/palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

constexpr unsigned kOwnColours = 1;  // it prints in the colours itself; others are tinted by them
constexpr unsigned kDirected = 2;    // it has strokes or light that come from somewhere

struct Row {
  Palette effect;
  void (*draw)(cv::Mat& bgr, const Style& style);
  unsigned traits = 0;
};

constexpr std::array<Row, kPaletteNames.size()> kRows = {{
    {Palette::Accents, palette::accents},
    {Palette::AngledStrokes, palette::angledStrokes, kDirected},
    {Palette::BasRelief, palette::basRelief, kOwnColours | kDirected},
    {Palette::Mosaic, palette::mosaic, kDirected},
    {Palette::ChalkCharcoal, palette::chalkCharcoal, kOwnColours | kDirected},
    {Palette::Charcoal, palette::charcoal, kOwnColours | kDirected},
    {Palette::Chrome, palette::chrome, kDirected},
    {Palette::ColoredPencil, palette::colouredPencil, kDirected},
    {Palette::Craquelure, palette::craquelure, kDirected},
    {Palette::Crosshatch, palette::crosshatch, kDirected},
    {Palette::Cutout, palette::cutout},
    {Palette::DarkStrokes, palette::darkStrokes, kDirected},
    {Palette::DiffuseGlow, palette::diffuseGlow},
    {Palette::DryBrush, palette::dryBrush},
    {Palette::Emboss, palette::emboss, kDirected},
    {Palette::FilmGrain, palette::filmGrain},
    {Palette::InkOutline, palette::inkOutline, kDirected},
    {Palette::NotePaper, palette::notePaper, kOwnColours | kDirected},
    {Palette::Fresco, palette::fresco},
    {Palette::GlowingEdges, palette::glowingEdges},
    {Palette::Grain, palette::grain},
    {Palette::HalfTone, palette::halfTone, kOwnColours | kDirected},
    {Palette::Patchwork, palette::patchwork, kDirected},
    {Palette::NeonGlow, palette::neonGlow, kOwnColours},
    {Palette::PaintDaubs, palette::paintDaubs},
    {Palette::PalletteKnife, palette::paletteKnife, kDirected},
    {Palette::Plaster, palette::plaster, kOwnColours | kDirected},
    {Palette::PlasticWrap, palette::plasticWrap, kDirected},
    {Palette::PosterEdges, palette::posterEdges},
    {Palette::Ripple, palette::ripple, kDirected},
    {Palette::Reticulation, palette::reticulation, kOwnColours},
    {Palette::SmudgeStick, palette::smudgeStick, kDirected},
    {Palette::Sponge, palette::sponge},
    {Palette::SpraydStroks, palette::sprayedStrokes, kDirected},
    {Palette::Stamp, palette::stamp, kOwnColours},
    {Palette::Photocopy, palette::photocopy, kOwnColours},
    {Palette::Sumie, palette::sumie, kDirected},
    {Palette::GraphicPen, palette::graphicPen, kOwnColours | kDirected},
    {Palette::TornEdges, palette::tornEdges, kOwnColours | kDirected},
    {Palette::Watercolor, palette::watercolor},
    {Palette::WaterPaper, palette::waterPaper, kDirected},
    {Palette::StainedGlass, palette::stainedGlass},
    {Palette::Glass, palette::glass, kDirected},
    {Palette::Texturizer, palette::texturizer, kDirected},
    {Palette::Underpainting, palette::underpainting, kDirected},
    {Palette::ConteCrayon, palette::conteCrayon, kOwnColours},
    {Palette::RoughPastel, palette::roughPastel, kDirected},
    {Palette::Spatter, palette::spatter},
}};

static_assert(std::all_of(kRows.begin(), kRows.end(), [](const Row& row) {
  return &row - kRows.data() + 1 == static_cast<int>(row.effect);
}));

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
    if (level < 1) mixPictures(picture, out, level, out);
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::Palette{makePaletteEffect, paletteEffectMoves};

}  // namespace kvo::engine
