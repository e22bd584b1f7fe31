#include "editor/tabs/color_tab.h"

#include "base/text.h"
#include "editor/compiler/durations.h"

#include <algorithm>
#include <string>

namespace kvo {
namespace {

struct ColourRow {
  const char* name;
  int max;
  const Single& (Movie::*get)() const;
  void (Movie::*set)(Single);
};
constexpr ColourRow kColourRows[kColourLevels] = {
    {"Red", 255, &Movie::Red, &Movie::Red},
    {"Green", 255, &Movie::Green, &Movie::Green},
    {"Blue", 255, &Movie::Blue, &Movie::Blue},
    {"Threshold", 1000, &Movie::Threshold, &Movie::Threshold},
    {"Contrast", 20, &Movie::Contrast, &Movie::Contrast},
    {"Brightness", 20, &Movie::Brightness, &Movie::Brightness},
    {"Gamma", 20, &Movie::Gamma, &Movie::Gamma},
};

const ColourRow& rowOf(ColourLevel level) { return kColourRows[static_cast<std::size_t>(level)]; }

void SetColorFrametoObj(const Editing& e, ColorTab& tab) {
  const int clipNo = chosenClip(tab.Lst_ColorAdjust);
  tab.enabled = clipNo >= 1 && clipNo <= e.clips().count();
  const Movie none;
  const auto& clip = tab.enabled ? e.clips()[clipNo] : none;
  tab.whyNot = tab.enabled ? "" : "Choose a clip first";
  tab.Chk_Sepia = tab.isAdjusted = clip.Sepia();
  for (std::size_t i = 0; i < kColourLevels; ++i) {
    const auto& row = kColourRows[i];
    const double stored = decimal((clip.*row.get)());
    const int value = toLongClamped(RoundToWhole(stored));
    tab.levels[i] = {std::min(0, value), std::max(row.max, value), value, tab.enabled, row.name};
    tab.levels[i].whyNot = tab.whyNot;
    tab.isAdjusted = tab.isAdjusted || stored != 0;
  }
  tab.resetWhyNot = tab.isAdjusted ? "" : "All values are 0 already";
}

void changeColours(const Editing& e, ColorTab& tab, TabHost& host, std::string_view act,
                   const std::function<void(Movie&)>& work) {
  const int clipNo = chosenClip(tab.Lst_ColorAdjust);
  if (!tab.enabled) return;
  const bool done = host.edit(act, clipNo, 0, [&] { work(e.clips()[clipNo]); });
  SetColorFrametoObj(e, tab);
  if (done) host.sample(Sample::Colour, clipNo);
}

// A clip as it is shows no sample, and that of another must not stand for it.
void sampleColours(const ColorTab& tab, TabHost& host, bool isOther) {
  if (tab.isAdjusted) return host.sample(Sample::Colour, chosenClip(tab.Lst_ColorAdjust));
  if (isOther) host.KillPreview();
}

}  // namespace

std::string_view colourLevelName(ColourLevel level) { return rowOf(level).name; }

void enterTab(const Editing& e, ColorTab& tab, TabHost& host) {
  tab.Lst_ColorAdjust.texts.assign(PopulateMovieListBoxes(e, ListedClips::WithPicture));
  followTab(e, tab, host, false);
  if (!tab.Lst_ColorAdjust.hasChoice() && !tab.Lst_ColorAdjust.rows().empty())
    chooseColourClip(e, tab, host, 0);
}

void followTab(const Editing& e, ColorTab& tab, TabHost& host, bool rebuild) {
  const int before = chosenClip(tab.Lst_ColorAdjust);
  if (rebuild) tab.Lst_ColorAdjust.texts.assign(PopulateMovieListBoxes(e, ListedClips::WithPicture));
  SetMovieLstToMainIndex(e, tab.Lst_ColorAdjust);
  SetColorFrametoObj(e, tab);
  if (rebuild) sampleColours(tab, host, chosenClip(tab.Lst_ColorAdjust) != before);
}

void chooseColourClip(const Editing& e, ColorTab& tab, TabHost& host, int row) {
  tab.Lst_ColorAdjust.ListIndex = row;
  if (tab.Lst_ColorAdjust.hasChoice()) host.UpDateFrmFileOpen(chosenClip(tab.Lst_ColorAdjust), false);
  SetMovieLstToMainIndex(e, tab.Lst_ColorAdjust);
  SetColorFrametoObj(e, tab);
  host.buildClipSliders();
  host.ShowClipStats();
  sampleColours(tab, host, true);
}

void moveColourLevel(const Editing& e, ColorTab& tab, TabHost& host, ColourLevel level, int value) {
  const auto& row = rowOf(level);
  changeColours(e, tab, host, row.name, [&](Movie& clip) { (clip.*row.set)(static_cast<Single>(value)); });
}

void tickSepia(const Editing& e, ColorTab& tab, TabHost& host, bool on) {
  changeColours(e, tab, host, "Sepia", [&](Movie& clip) { clip.Sepia(on); });
}

void resetColours(const Editing& e, ColorTab& tab, TabHost& host) {
  changeColours(e, tab, host, "Reset colors", [](Movie& clip) {
    for (const auto& row : kColourRows) (clip.*row.set)(0);
    clip.Sepia(false);
  });
}

}  // namespace kvo
