#include "engine/effects/registry.h"

#include "base/text.h"

#include <array>

namespace kvo::engine {

// Each is defined in the file of its name.
MakeEffect makeAdjustment, makeAlpha, makeBasicImage, makeBlur, makeChroma, makeDropShadow, makeEmboss,
    makeEngrave, makeFadeToBlack, makeFilmAge, makeMotionBlur, makePaletteEffect, makePixelateEffect;
Moves movesInSpace, paletteEffectMoves;

namespace {

bool always(const Params& /*params*/) { return true; }

constexpr std::array kEffects = {
    EffectKind{"{16B280C8-EE70-11D1-9066-00C04FD9189D}", makeBasicImage},
    EffectKind{"{7312498D-E87A-11d1-81E0-0000F87557DB}", makeBlur},
    EffectKind{"{421516C1-3CF8-11D2-952A-00C04FA34F05}", makeChroma},
    EffectKind{"{ADC6CB86-424C-11D2-952A-00C04FA34F05}", makeDropShadow},
    EffectKind{"{F515306D-0156-11d2-81EA-0000F87557DB}", makeEmboss},
    EffectKind{"{F515306E-0156-11d2-81EA-0000F87557DB}", makeEngrave},
    EffectKind{"{4CCEA634-FBE0-11d1-906A-00C04FD9189D}", makePixelateEffect},
    EffectKind{"{ADC6CB82-424C-11D2-952A-00C04FA34F05}", makeAlpha},
    EffectKind{"{DD13DE77-D3BA-42D4-B5C6-7745FA4E2D4B}", makeMotionBlur},
    EffectKind{"{ADEADEB8-E54B-11d1-9A72-0000F875EADE}", makeFilmAge, always},
    EffectKind{"{EC85D8F1-1C4E-46e4-A748-7AA04E7C0496}", makeFadeToBlack, always},
    EffectKind{"{16B280C5-EE70-11D1-9066-00C04FD9189D}", makeFadeToBlack, always},
    EffectKind{"{B4DC8DD9-2CC1-4081-9B2B-20D7030234EF}", makeAdjustment, movesInSpace},
    EffectKind{"{E673DCF2-C316-4c6f-AA96-4E4DC6DC291E}", makePaletteEffect, paletteEffectMoves},
};

}  // namespace

const EffectKind* findEffect(std::string_view clsid) {
  for (const auto& kind : kEffects) {
    if (sameText(kind.clsid, clsid)) return &kind;
  }
  return nullptr;
}

}  // namespace kvo::engine
