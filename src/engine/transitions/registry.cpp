#include "engine/transitions/registry.h"

#include "base/text.h"
#include "engine/transitions/fade.h"

#include <array>

namespace kvo::engine {
namespace {

struct Entry {
  std::string_view clsid;
  DrawTransition draw;
};

constexpr std::array kTransitions = {
    Entry{"{16B280C5-EE70-11D1-9066-00C04FD9189D}", drawFade},
};

}  // namespace

DrawTransition findTransition(std::string_view clsid) {
  for (const auto& entry : kTransitions) {
    if (sameText(entry.clsid, clsid)) return entry.draw;
  }
  return nullptr;
}

bool isCutElement(std::string_view clsid) { return clsid == "{99999999-9999-9999-9999-999999999999}"; }

}  // namespace kvo::engine
