#include "engine/effects/registry.h"

#include "base/text.h"
#include "vocabulary/effects.h"

namespace kvo::engine {

namespace {

constexpr EffectKind kEffects[] = {
#define KVO_EFFECT(word, name, clsid) {#word, effect_ids::k##word, effects::word},
#include "vocabulary/effect_list.inc"
#undef KVO_EFFECT
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
