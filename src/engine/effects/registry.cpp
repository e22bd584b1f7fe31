#include "engine/effects/registry.h"

#include "base/text.h"
#include "vocabulary/effects.h"

#include <array>

namespace kvo::engine {

// Each is defined in the file of its name.
MakeEffect makeAdjustment, makeAlpha, makeBasicImage, makeBlur, makeChroma, makeDropShadow, makeEmboss,
    makeEngrave, makeFadeToBlack, makeFilmAge, makeMotionBlur, makePaletteEffect, makePixelateEffect;
Moves movesInSpace, paletteEffectMoves;

namespace {

bool always(const Params& /*params*/) { return true; }

constexpr std::array kEffects = {
    EffectKind{"Basic image", effect_ids::kBasicImage, makeBasicImage},
    EffectKind{"Blur", effect_ids::kBlur, makeBlur},
    EffectKind{"Chroma", effect_ids::kChroma, makeChroma},
    EffectKind{"Drop shadow", effect_ids::kDropShadow, makeDropShadow},
    EffectKind{"Emboss", effect_ids::kEmboss, makeEmboss},
    EffectKind{"Engrave", effect_ids::kEngrave, makeEngrave},
    EffectKind{"Pixelate", effect_ids::kPixelate, makePixelateEffect},
    EffectKind{"Alpha", effect_ids::kAlpha, makeAlpha},
    EffectKind{"Motion blur", effect_ids::kMotionBlur, makeMotionBlur},
    EffectKind{"Film age", effect_ids::kFilmAge, makeFilmAge, always},
    EffectKind{"Fade to black", effect_ids::kFadeToBlack, makeFadeToBlack, always},
    EffectKind{"Fade to black", effect_ids::kFade, makeFadeToBlack, always},
    EffectKind{"Adjustment", effect_ids::kEase, makeAdjustment, movesInSpace},
    EffectKind{"Palette", effect_ids::kPalette, makePaletteEffect, paletteEffectMoves},
};

}  // namespace

std::span<const EffectKind> effectKinds() { return kEffects; }

const EffectKind* findEffect(std::string_view clsid) {
  for (const auto& kind : kEffects) {
    if (sameText(kind.clsid, clsid)) return &kind;
  }
  return nullptr;
}

}  // namespace kvo::engine
