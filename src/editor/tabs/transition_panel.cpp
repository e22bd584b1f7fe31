#include "editor/tabs/transition_panel.h"

#include "base/text.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kShortDuration = 3;  // tenths of a second
constexpr int kOpenOptions = 2;

bool hasFreeOptions(const TransitionOptionSet& options) {
  return !options.firstCaption.empty() || !options.secondCaption.empty();
}

}  // namespace

void DoTransition(const Editing& e, TransitionPanel& panel, int mode) {
  panel.wantsParticleWindow = panel.wantsPreview = false;
  const int clipNo = e.collection.icurMov;
  if (clipNo < 1 || e.clips().empty()) return;
  auto& clip = e.clips()[clipNo];
  panel.options = ShowTransOptions(panel.selected);
  panel.Cmd_ParticleOpts = panel.options.particles;
  if (mode == kOpenOptions && panel.options.particles) {
    panel.wantsParticleWindow = true;
    return;
  }
  if (!hasFreeOptions(panel.options)) {
    clip.ExtraParamName2("");
    clip.ExtraParamValue2("");
  }
  panel.currentMask = panel.options.bordersAndMask ? "Current Mask=" + clip.MaskName() : std::string();
  ApplyTransitionDataToObjects(e, panel);
  panel.wantsPreview = e.editor.controls.Sld_In.Value > 0;
}

void ApplyTransitionDataToObjects(const Editing& e, TransitionPanel& panel) {
  auto& clip = e.clips()[e.collection.icurMov];
  const double duration = e.editor.controls.Sld_In.Value;
  clip.TransType(panel.listVisible && !panel.selected.empty() ? panel.selected : "CUT");
  if (static_cast<double>(clip.TransIn()) != duration) clip.TransIn(static_cast<Single>(duration));
  showDuration(e, panel);
}

void showDuration(const Editing& e, TransitionPanel& panel) {
  const double duration = e.editor.controls.Sld_In.Value;
  panel.durationIsShort = panel.listVisible && duration < kShortDuration;
  panel.Fra_FadDur =
      panel.durationIsShort ? "Transition Duration - ( Duration is very Short! )" : "Transition Duration";
}

void warnOfShortDuration(const Editing& e, const TransitionPanel& panel) {
  if (!panel.durationIsShort) return;
  e.boxes.show(
      {"KVO - Short Transition duration",
       "Transition duration is very short and probably won't be seen unless you have a high frame rate !",
       BoxButtons::Ok, BoxIcon::Information});
}

void MatchTransitionToList(const Editing& e, TransitionPanel& panel) {
  const auto names = transitionNames();
  const auto found = std::find(names.begin(), names.end(), e.clips()[e.collection.icurMov].TransType());
  panel.selected = found == names.end() ? std::string() : std::string(*found);
}

}  // namespace kvo
