// The palette of named effects in the manner of painting and print, in the order of their numbers.
#pragma once

#include <array>
#include <string_view>

namespace kvo {

/// EffectID in a document: 1 to 48.
enum class Palette {
  Accents = 1,
  AngledStrokes,
  BasRelief,
  Mosaic,
  ChalkCharcoal,
  Charcoal,
  Chrome,
  ColoredPencil,
  Craquelure,
  Crosshatch,
  Cutout,
  DarkStrokes,
  DiffuseGlow,
  DryBrush,
  Emboss,
  FilmGrain,
  InkOutline,
  NotePaper,
  Fresco,
  GlowingEdges,
  Grain,
  HalfTone,
  Patchwork,
  NeonGlow,
  PaintDaubs,
  PalletteKnife,
  Plaster,
  PlasticWrap,
  PosterEdges,
  Ripple,
  Reticulation,
  SmudgeStick,
  Sponge,
  SpraydStroks,
  Stamp,
  Photocopy,
  Sumie,
  GraphicPen,
  TornEdges,
  Watercolor,
  WaterPaper,
  StainedGlass,
  Glass,
  Texturizer,
  Underpainting,
  ConteCrayon,
  RoughPastel,
  Spatter
};

/// Their names, the first that of number 1, as tables and documents spell them.
inline constexpr std::array<std::string_view, 48> kPaletteNames = {
    "Accents",      "Angled Strokes", "BasRelief",     "Mosaic",       "ChalkCharcoal", "Charcoal",
    "Chrome",       "ColoredPencil",  "Craquelure",    "Crosshatch",   "Cutout",        "DarkStrokes",
    "DiffuseGlow",  "Dry Brush",      "Emboss",        "FilmGrain",    "InkOutline",    "NotePaper",
    "Fresco",       "GlowingEdges",   "Grain",         "HalfTone",     "Patchwork",     "Neon Glow",
    "PaintDaubs",   "PalletteKnife",  "Plaster",       "PlasticWrap",  "PosterEdges",   "Ripple",
    "Reticulation", "SmudgeStick",    "Sponge",        "SpraydStroks", "Stamp",         "Photocopy",
    "Sumie",        "GraphicPen",     "TornEdges",     "Watercolor",   "WaterPaper",    "StainedGlass",
    "Glass",        "Texturizer",     "Underpainting", "ConteCrayon",  "RoughPastel",   "Spatter"};

}  // namespace kvo
