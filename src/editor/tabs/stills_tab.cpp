#include "editor/tabs/stills_tab.h"

#include "base/text.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr Integer kStillsChanged = 98;  // change code
constexpr int kLeastStillTime = 500;    // milliseconds
constexpr int kMostStillTime = 20000;   // milliseconds
constexpr int kStillStep = 100;         // milliseconds
constexpr double kMilliseconds = 1000;

constexpr std::string_view kAspects[] = {"Stretch to fit video framesize",
                                         "Maintain aspect ratio for shorter dimension (letterbox)",
                                         "Maintain and fill target frame", "Crop to fit output frame size"};

std::string stillsCaption(int count) {
  return count == 1 ? translated("Still Options - 1 still in this collection")
                    : translated("Still Options - %1 stills in this collection", {std::to_string(count)});
}

void giveDurations(const Editing& e) {
  for (int i = 1; i <= e.clips().count(); ++i) {
    auto& clip = e.clips()[i];
    if (clip.IsStill() && clip.DurationTime().text() == "N/A")
      clip.DurationTime(Value(decimal(e.settings.state.DefaultStillDuration)));
  }
}

// The panel as the chosen still has it, or as the default is.
void BuildStillFrame(const Editing& e, StillsTab& tab) {
  const int count = GetStillsInCollection(e);
  tab.caption = stillsCaption(count);
  tab.enabled = count > 0;
  tab.whyNot = tab.enabled ? "" : "There is no still in this collection";
  tab.controls.individually = stillsAreIndividual(e);
  const bool isAlike = tab.enabled && !tab.controls.individually;
  tab.listWhyNot = isAlike ? "All stills are treated the same" : tab.whyNot;
  if (!tab.Lst_Movies.hasChoice() && !tab.Lst_Movies.rows().empty()) tab.Lst_Movies.ListIndex = 0;
  const int clipNo = chosenClip(tab.Lst_Movies);
  tab.shownClip = tab.controls.selectedClip = clipNo;
  double seconds = decimal(e.settings.state.DefaultStillDuration);
  if (clipNo > 0) {
    const auto& clip = e.clips()[clipNo];
    seconds = stillSeconds(e, clip);
    tab.controls.aspect = std::clamp<int>(clip.stretchmode(), 0, static_cast<int>(std::size(kAspects)) - 1);
  }
  tab.controls.milliseconds = RoundToWhole(seconds * kMilliseconds);
  const int shown = toLongClamped(tab.controls.milliseconds);
  tab.Slider1 = {std::min(kLeastStillTime, shown), std::max(kMostStillTime, shown), shown, tab.enabled, {}};
  tab.Slider1.whyNot = tab.whyNot;
  tab.reading = translated("%1 s", {FormatMask(seconds, "0.0##")});
}

void fillStills(const Editing& e, StillsTab& tab) {
  tab.Lst_Movies.texts.assign(PopulateStillListBox(e));
  SetMovieLstToMainIndex(e, tab.Lst_Movies);
}

void follow(const Editing& e, StillsTab& tab, bool rebuild) {
  const int chosen = chosenClip(tab.Lst_Movies);
  if (rebuild) fillStills(e, tab);
  SetMovieLstToMainIndex(e, tab.Lst_Movies);
  if (!tab.Lst_Movies.hasChoice()) chooseClip(tab.Lst_Movies, chosen);
  BuildStillFrame(e, tab);
}

// One step of the history on one still or on all of them; 0 names no clip.
void changeStills(const Editing& e, StillsTab& tab, TabHost& host, std::string_view act,
                  const std::function<void()>& work) {
  if (!tab.enabled) return;
  const int clipNo = tab.controls.individually ? tab.controls.selectedClip : 0;
  host.edit(act, clipNo, kStillsChanged, work);
  BuildStillFrame(e, tab);
  host.ShowClipStats();
}

}  // namespace

std::span<const std::string_view> aspectCaptions() { return kAspects; }

void restoreStills(const Editing& e, StillsTab& tab) {
  tab = {};
  fillStills(e, tab);
  BuildStillFrame(e, tab);
}

void enterTab(const Editing& e, StillsTab& tab, TabHost& host) {
  giveDurations(e);
  followTab(e, tab, host, true);
}

void followTab(const Editing& e, StillsTab& tab, TabHost& /*host*/, bool rebuild) { follow(e, tab, rebuild); }

StillControls stillControls(const Editing& e, StillsTab& tab) {
  follow(e, tab, true);
  return tab.controls;
}

void chooseStill(const Editing& e, StillsTab& tab, TabHost& host, int row) {
  tab.Lst_Movies.ListIndex = row;
  if (tab.Lst_Movies.hasChoice()) host.UpDateFrmFileOpen(chosenClip(tab.Lst_Movies), false);
  BuildStillFrame(e, tab);
  host.buildClipSliders();
  host.ShowClipStats();
}

void chooseIndividually(const Editing& e, StillsTab& tab, TabHost& host, bool individually) {
  host.edit("Still options", 0, kStillsChanged, [&] {
    e.settings.adjust().StillsIndividual = individually;
    auto controls = tab.controls;
    controls.individually = individually;
    if (!individually) ApplyStillSettings(e, controls);
  });
  BuildStillFrame(e, tab);
}

void moveStillDuration(const Editing& e, StillsTab& tab, TabHost& host, int milliseconds) {
  changeStills(e, tab, host, "Still duration", [&] {
    auto controls = tab.controls;
    const int steps = (milliseconds + kStillStep / 2) / kStillStep;
    moveStillSlider(e, controls, steps * kStillStep);
  });
}

void chooseAspect(const Editing& e, StillsTab& tab, TabHost& host, int aspect) {
  changeStills(e, tab, host, "Still aspect", [&] {
    auto controls = tab.controls;
    controls.aspect = aspect;
    ApplyStillSettings(e, controls);
  });
}

}  // namespace kvo
