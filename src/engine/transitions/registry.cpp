#include "engine/transitions/registry.h"

#include "base/text.h"
#include "vocabulary/transitions.h"

#include <array>

namespace kvo::engine {

// Each is defined in the file of its name.
MakeTransition makeBarn, makeBlinds, makeCheckerboard, makeColourFade, makeCurtains, makeDissolve, makeFade,
    makeFadeThroughWhite, makeInSpace, makeInset, makeIris, makeLumaThreshold, makePixelate, makePlacing,
    makeRadialWipe, makeRollDown, makeSlide, makeSmpteWipe, makeSpiral, makeStretch, makeWheel, makeWipe,
    makeZigzag;
CoversAll placesAll;

namespace {

constexpr std::array kTransitions = {
    TransitionKind{transition_ids::kFade, makeFade},
    TransitionKind{transition_ids::kDissolve, makeDissolve},
    TransitionKind{transition_ids::kSmpteWipe, makeSmpteWipe},
    TransitionKind{transition_ids::kBarn, makeBarn},
    TransitionKind{transition_ids::kBlinds, makeBlinds},
    TransitionKind{transition_ids::kCheckerboard, makeCheckerboard},
    TransitionKind{transition_ids::kColorFade, makeColourFade},
    TransitionKind{transition_ids::kFadeWhite, makeFadeThroughWhite},
    TransitionKind{transition_ids::kCurtains, makeCurtains},
    TransitionKind{transition_ids::kInset, makeInset},
    TransitionKind{transition_ids::kIris, makeIris},
    TransitionKind{transition_ids::kPixelate, makePixelate},
    TransitionKind{transition_ids::kRadialWipe, makeRadialWipe},
    TransitionKind{transition_ids::kRollDown, makeRollDown},
    TransitionKind{transition_ids::kSlide, makeSlide},
    TransitionKind{transition_ids::kSpiral, makeSpiral},
    TransitionKind{transition_ids::kStretch, makeStretch},
    TransitionKind{transition_ids::kThreshold, makeLumaThreshold},
    TransitionKind{transition_ids::kWheel, makeWheel},
    TransitionKind{transition_ids::kWipe, makeWipe},
    TransitionKind{transition_ids::kZigzag, makeZigzag},
    TransitionKind{transition_ids::kPlacing, makePlacing, placesAll},
    TransitionKind{transition_ids::kCompositor, makePlacing, placesAll},
    TransitionKind{transition_ids::kParticlesAnd3D, makeInSpace},
};

}  // namespace

const TransitionKind* findTransition(std::string_view clsid) {
  for (const auto& kind : kTransitions) {
    if (sameText(kind.clsid, clsid)) return &kind;
  }
  return nullptr;
}

bool isCutElement(std::string_view clsid) { return sameText(clsid, transition_ids::kNone); }

}  // namespace kvo::engine
