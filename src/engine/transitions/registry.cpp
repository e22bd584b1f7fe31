#include "engine/transitions/registry.h"

#include "base/text.h"
#include "vocabulary/transitions.h"

namespace kvo::engine {

namespace {

constexpr TransitionKind kTransitions[] = {
#define KVO_TRANSITION(word, name, clsid) {#word, transition_ids::k##word, transitions::word},
#include "vocabulary/transition_list.inc"
#undef KVO_TRANSITION
};

}  // namespace

std::span<const TransitionKind> transitionKinds() { return kTransitions; }

const TransitionKind* findTransition(std::string_view clsid) {
  for (const auto& kind : kTransitions) {
    if (sameText(kind.clsid, clsid)) return &kind;
  }
  return nullptr;
}

bool isCutElement(std::string_view clsid) { return sameText(clsid, transition_ids::kNone); }

}  // namespace kvo::engine
