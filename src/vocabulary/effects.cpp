#include "vocabulary/effects.h"

namespace kvo {
namespace {

constexpr NamedClass kEffectClasses[] = {
#define KVO_EFFECT(word, name, clsid) {name, effect_ids::k##word},
#include "vocabulary/effect_list.inc"
#undef KVO_EFFECT
};

}  // namespace

std::span<const NamedClass> effectClasses() { return kEffectClasses; }

}  // namespace kvo
