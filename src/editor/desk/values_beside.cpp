#include "editor/desk/values_beside.h"

#include "base/text.h"

namespace kvo {
namespace {

constexpr std::string_view kOn = "1";

ValueBeside asFlag(bool& flag) {
  return {[&flag] { return std::string(flag ? kOn : ""); },
          [&flag](const std::string& text) { flag = text == kOn; }};
}

}  // namespace

std::vector<ValueBeside> valuesBeside(const Editing& e, OverlayTab& overlay) {
  auto& still = e.settings.state.DefaultStillDuration;
  auto& effects = e.editor.effects;
  return {asFlag(overlay.overlaySound.ticked),
          asFlag(overlay.backdropSound.ticked),
          {[&still] { return ShortText(still); },
           [&still](const std::string& text) { still = static_cast<Single>(ToNumber(text)); }},
          {[&effects] { return effects.text(true); },
           [&effects](const std::string& text) { effects.read(text); }}};
}

}  // namespace kvo
