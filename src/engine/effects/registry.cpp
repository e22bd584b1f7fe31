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
    EffectKind{effect_ids::kBasicImage, makeBasicImage},
    EffectKind{effect_ids::kBlur, makeBlur},
    EffectKind{effect_ids::kChroma, makeChroma},
    EffectKind{effect_ids::kDropShadow, makeDropShadow},
    EffectKind{effect_ids::kEmboss, makeEmboss},
    EffectKind{effect_ids::kEngrave, makeEngrave},
    EffectKind{effect_ids::kPixelate, makePixelateEffect},
    EffectKind{effect_ids::kAlpha, makeAlpha},
    EffectKind{effect_ids::kMotionBlur, makeMotionBlur},
    EffectKind{effect_ids::kFilmAge, makeFilmAge, always},
    EffectKind{effect_ids::kFadeToBlack, makeFadeToBlack, always},
    EffectKind{effect_ids::kFade, makeFadeToBlack, always},
    EffectKind{effect_ids::kEase, makeAdjustment, movesInSpace},
    EffectKind{effect_ids::kPalette, makePaletteEffect, paletteEffectMoves},
};

}  // namespace

const EffectKind* findEffect(std::string_view clsid) {
  for (const auto& kind : kEffects) {
    if (sameText(kind.clsid, clsid)) return &kind;
  }
  return nullptr;
}

}  // namespace kvo::engine
