// The effects by name, and the class ids that stand for them in a document, in their own case.
#pragma once

#include "vocabulary/transitions.h"

#include <array>
#include <span>
#include <string_view>

namespace kvo {

namespace effect_ids {
#define KVO_EFFECT(word, name, clsid) inline constexpr std::string_view k##word = clsid;
#include "vocabulary/effect_list.inc"
#undef KVO_EFFECT
inline constexpr std::string_view kAudioEnvelope =
    "{036A9790-C153-11d2-9EF7-006008039E37}";  ///< of a sound's volume
}  // namespace effect_ids

/// The class ids by name.
std::span<const NamedClass> effectClasses();

/// The effects that a clip has no table row or slider for, as they are named to the user.
inline constexpr std::array<std::string_view, 8> kBuiltInEffects = {
    "Mirror", "Invert", "Flip Vertical", "X-Ray", "Grayscale", "Engrave", "Emboss", "Fade to Black"};

}  // namespace kvo
