// The effects by name, and the class ids that stand for them in a document, in their own case.
#pragma once

#include "vocabulary/transitions.h"

#include <array>
#include <span>
#include <string_view>

namespace kvo {

namespace effect_ids {
inline constexpr std::string_view kBasicImage = "{16B280C8-EE70-11D1-9066-00C04FD9189D}";
inline constexpr std::string_view kBlur = "{7312498D-E87A-11d1-81E0-0000F87557DB}";
inline constexpr std::string_view kChroma = "{421516C1-3CF8-11D2-952A-00C04FA34F05}";
inline constexpr std::string_view kDropShadow = "{ADC6CB86-424C-11D2-952A-00C04FA34F05}";
inline constexpr std::string_view kEmboss = "{F515306D-0156-11d2-81EA-0000F87557DB}";
inline constexpr std::string_view kEngrave = "{F515306E-0156-11d2-81EA-0000F87557DB}";
inline constexpr std::string_view kFade = transition_ids::kFade;
inline constexpr std::string_view kPixelate = transition_ids::kPixelate;
inline constexpr std::string_view kAlpha = "{ADC6CB82-424C-11D2-952A-00C04FA34F05}";
inline constexpr std::string_view kMotionBlur = "{DD13DE77-D3BA-42D4-B5C6-7745FA4E2D4B}";
inline constexpr std::string_view kFilmAge = "{ADEADEB8-E54B-11d1-9A72-0000F875EADE}";
inline constexpr std::string_view kFadeToBlack = "{EC85D8F1-1C4E-46e4-A748-7AA04E7C0496}";
inline constexpr std::string_view kEase = "{B4DC8DD9-2CC1-4081-9B2B-20D7030234EF}";
inline constexpr std::string_view kPalette = "{E673DCF2-C316-4c6f-AA96-4E4DC6DC291E}";  ///< by EffectID
inline constexpr std::string_view kAudioEnvelope =
    "{036A9790-C153-11d2-9EF7-006008039E37}";  ///< of a sound's volume
}  // namespace effect_ids

/// The class ids of the effects that are known by a name of their own.
std::span<const NamedClass> effectClasses();

/// The effects that a clip has no table row or slider for, as they are named to the user.
inline constexpr std::array<std::string_view, 8> kBuiltInEffects = {
    "Mirror", "Invert", "Flip Vertical", "X-Ray", "Grayscale", "Engrave", "Emboss", "Fade to Black"};

}  // namespace kvo
