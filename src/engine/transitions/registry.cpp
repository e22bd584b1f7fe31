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
    TransitionKind{"Fade", transition_ids::kFade, makeFade},
    TransitionKind{"Dissolve", transition_ids::kDissolve, makeDissolve},
    TransitionKind{"SMPTE wipe", transition_ids::kSmpteWipe, makeSmpteWipe},
    TransitionKind{"Barn", transition_ids::kBarn, makeBarn},
    TransitionKind{"Blinds", transition_ids::kBlinds, makeBlinds},
    TransitionKind{"Checkerboard", transition_ids::kCheckerboard, makeCheckerboard},
    TransitionKind{"Colour fade", transition_ids::kColorFade, makeColourFade},
    TransitionKind{"Fade through white", transition_ids::kFadeWhite, makeFadeThroughWhite},
    TransitionKind{"Curtains", transition_ids::kCurtains, makeCurtains},
    TransitionKind{"Inset", transition_ids::kInset, makeInset},
    TransitionKind{"Iris", transition_ids::kIris, makeIris},
    TransitionKind{"Pixelate", transition_ids::kPixelate, makePixelate},
    TransitionKind{"Radial wipe", transition_ids::kRadialWipe, makeRadialWipe},
    TransitionKind{"Roll down", transition_ids::kRollDown, makeRollDown},
    TransitionKind{"Slide", transition_ids::kSlide, makeSlide},
    TransitionKind{"Spiral", transition_ids::kSpiral, makeSpiral},
    TransitionKind{"Stretch", transition_ids::kStretch, makeStretch},
    TransitionKind{"Luma threshold", transition_ids::kThreshold, makeLumaThreshold},
    TransitionKind{"Wheel", transition_ids::kWheel, makeWheel},
    TransitionKind{"Wipe", transition_ids::kWipe, makeWipe},
    TransitionKind{"Zigzag", transition_ids::kZigzag, makeZigzag},
    TransitionKind{"Placing", transition_ids::kPlacing, makePlacing, placesAll},
    TransitionKind{"Placing", transition_ids::kCompositor, makePlacing, placesAll},
    TransitionKind{"In space", transition_ids::kParticlesAnd3D, makeInSpace},
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
