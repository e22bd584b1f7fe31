#include "engine/transitions/registry.h"

#include "base/numbers.h"
#include "base/text.h"
#include "engine/transitions/barn.h"
#include "engine/transitions/blinds.h"
#include "engine/transitions/checkerboard.h"
#include "engine/transitions/dissolve.h"
#include "engine/transitions/fade.h"
#include "engine/transitions/iris.h"
#include "engine/transitions/radial_wipe.h"
#include "engine/transitions/spiral.h"
#include "engine/transitions/wheel.h"
#include "engine/transitions/wipe.h"
#include "engine/transitions/zigzag.h"

#include <algorithm>
#include <array>

namespace kvo::engine {
namespace {

constexpr double kMostParts = 200;  // bands, spokes, squares

struct Entry {
  std::string_view clsid;
  MakeTransition make;
};

constexpr std::array kTransitions = {
    Entry{"{16B280C5-EE70-11D1-9066-00C04FD9189D}", makeFade},
    Entry{"{F7F4A1B6-8E87-452f-A2D7-3077F508DBC0}", makeDissolve},
    Entry{"{C3BDF740-0B58-11d2-A484-00C04F8EFB69}", makeBarn},
    Entry{"{9A4A4A51-FB3A-4F4B-9B57-A2912A289769}", makeBlinds},
    Entry{"{B3EE7802-8224-4787-A1EA-F0DE16DEABD3}", makeCheckerboard},
    Entry{"{3F69F351-0379-11D2-A484-00C04F8EFB69}", makeIris},
    Entry{"{424B71AF-0695-11D2-A484-00C04F8EFB69}", makeRadialWipe},
    Entry{"{ACA97E00-0C7D-11d2-A484-00C04F8EFB69}", makeSpiral},
    Entry{"{5AE1DAE0-1461-11d2-A484-00C04F8EFB69}", makeWheel},
    Entry{"{AF279B30-86EB-11D1-81BF-0000F87557DB}", makeWipe},
    Entry{"{E6E73D20-0C8A-11d2-A484-00C04F8EFB69}", makeZigzag},
};

}  // namespace

double countParam(const TransitionParams& params, std::string_view name, double otherwise) {
  const auto found = params.find(name);
  const double count = found == params.end() ? 0 : RoundToWhole(ToNumber(found->second));
  return count >= 1 ? std::min(count, kMostParts) : otherwise;
}

std::string wordParam(const TransitionParams& params, std::string_view name) {
  const auto found = params.find(name);
  return found == params.end() ? std::string() : lower(trimmed(found->second));
}

MakeTransition findTransition(std::string_view clsid) {
  for (const auto& entry : kTransitions) {
    if (sameText(entry.clsid, clsid)) return entry.make;
  }
  return nullptr;
}

bool isCutElement(std::string_view clsid) { return clsid == "{99999999-9999-9999-9999-999999999999}"; }

}  // namespace kvo::engine
