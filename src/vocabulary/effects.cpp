#include "vocabulary/effects.h"

namespace kvo {
namespace {

constexpr NamedClass kEffectClasses[] = {
    {"BasicImage", effect_ids::kBasicImage},
    {"Blur", effect_ids::kBlur},
    {"Chroma", effect_ids::kChroma},
    {"DropShadow", effect_ids::kDropShadow},
    {"Emboss", effect_ids::kEmboss},
    {"Engrave", effect_ids::kEngrave},
    {"Fade", effect_ids::kFade},
    {"Pixelate", effect_ids::kPixelate},
    {"Alpha", effect_ids::kAlpha},
    {"MotionBlur", effect_ids::kMotionBlur},
    {"FilmAge", effect_ids::kFilmAge},
    {"FadeToBlack", effect_ids::kFadeToBlack},
    {"Ease", effect_ids::kEase},
};

}  // namespace

std::span<const NamedClass> effectClasses() { return kEffectClasses; }

}  // namespace kvo
