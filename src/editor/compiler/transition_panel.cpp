#include "editor/compiler/transition_panel.h"

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

void DoTransition(const Compilation& c, TransitionPanel& panel, int mode) {
  panel.wantsParticleWindow = panel.wantsPreview = false;
  const int clipNo = c.collection.icurMov;
  if (clipNo < 1 || c.clips().empty()) return;
  auto& clip = c.clips()[clipNo];
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
  ApplyTransitionDataToObjects(c, panel);
  panel.wantsPreview = c.editor.controls.Sld_In.Value > 0;
}

void ApplyTransitionDataToObjects(const Compilation& c, TransitionPanel& panel) {
  auto& clip = c.clips()[c.collection.icurMov];
  const double duration = c.editor.controls.Sld_In.Value;
  clip.TransType(panel.listVisible && !panel.selected.empty() ? panel.selected : "CUT");
  if (static_cast<double>(clip.TransIn()) != duration) clip.TransIn(static_cast<Single>(duration));
  panel.durationIsShort = duration < kShortDuration;
  panel.Fra_FadDur =
      panel.durationIsShort ? "Transition Duration - ( Duration is very Short! )" : "Transition Duration";
  if (!panel.durationIsShort) return;
  c.boxes.show(
      {"KVO - Short Transition duration",
       "Transition duration is very short and probably won't be seen unless you have a high frame rate !",
       BoxButtons::Ok, BoxIcon::Information});
}

void MatchTransitionToList(const Compilation& c, TransitionPanel& panel) {
  const auto names = transitionNames();
  const auto found = std::find(names.begin(), names.end(), c.clips()[c.collection.icurMov].TransType());
  panel.selected = found == names.end() ? std::string() : std::string(*found);
}

}  // namespace kvo
