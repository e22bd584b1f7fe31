#include "engine/transitions/registry.h"

#include "base/text.h"

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
    TransitionKind{"{16B280C5-EE70-11D1-9066-00C04FD9189D}", makeFade},
    TransitionKind{"{F7F4A1B6-8E87-452f-A2D7-3077F508DBC0}", makeDissolve},
    TransitionKind{"{dE75D012-7A65-11D2-8CEA-00A0C9441E20}", makeSmpteWipe},
    TransitionKind{"{C3BDF740-0B58-11d2-A484-00C04F8EFB69}", makeBarn},
    TransitionKind{"{9A4A4A51-FB3A-4F4B-9B57-A2912A289769}", makeBlinds},
    TransitionKind{"{B3EE7802-8224-4787-A1EA-F0DE16DEABD3}", makeCheckerboard},
    TransitionKind{"{2A54C908-07AA-11D2-8D6D-00C04F8EF8E0}", makeColourFade},
    TransitionKind{"{107045CC-06E0-11D2-8D6D-00C04F8EF8E0}", makeFadeThroughWhite},
    TransitionKind{"{AA0D4D12-06A3-11D2-8F98-00C04FB92EB7}", makeCurtains},
    TransitionKind{"{93073C40-0BA5-11d2-A484-00C04F8EFB69}", makeInset},
    TransitionKind{"{3F69F351-0379-11D2-A484-00C04F8EFB69}", makeIris},
    TransitionKind{"{4CCEA634-FBE0-11d1-906A-00C04FD9189D}", makePixelate},
    TransitionKind{"{424B71AF-0695-11D2-A484-00C04F8EFB69}", makeRadialWipe},
    TransitionKind{"{9C61F46E-0530-11D2-8F98-00C04FB92EB7}", makeRollDown},
    TransitionKind{"{810E402F-056B-11D2-A484-00C04F8EFB69}", makeSlide},
    TransitionKind{"{ACA97E00-0C7D-11d2-A484-00C04F8EFB69}", makeSpiral},
    TransitionKind{"{7658F2A2-0A83-11d2-A484-00C04F8EFB69}", makeStretch},
    TransitionKind{"{2A54C915-07AA-11D2-8D6D-00C04F8EF8E0}", makeLumaThreshold},
    TransitionKind{"{5AE1DAE0-1461-11d2-A484-00C04F8EFB69}", makeWheel},
    TransitionKind{"{AF279B30-86EB-11D1-81BF-0000F87557DB}", makeWipe},
    TransitionKind{"{E6E73D20-0C8A-11d2-A484-00C04F8EFB69}", makeZigzag},
    TransitionKind{"{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}", makePlacing, placesAll},
    TransitionKind{"{9A43A844-0831-11D1-817F-0000F87557DB}", makePlacing, placesAll},
    TransitionKind{"{C63344D8-70D3-4032-9B32-7A3CAD5091A5}", makeInSpace},
};

}  // namespace

const TransitionKind* findTransition(std::string_view clsid) {
  for (const auto& kind : kTransitions) {
    if (sameText(kind.clsid, clsid)) return &kind;
  }
  return nullptr;
}

bool isCutElement(std::string_view clsid) {
  return sameText(clsid, "{99999999-9999-9999-9999-999999999999}");
}

}  // namespace kvo::engine
