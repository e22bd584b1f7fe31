#include "editor/tabs/transition_tab.h"

#include "base/text.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/sample_documents.h"
#include "editor/tabs/operations.h"
#include "vocabulary/transitions.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr double kDefaultLength = 20;  // tenths of a second, of a clip that has had no transition yet
constexpr Integer kRetime = 98;
constexpr std::size_t kMaxName = 80;  // characters

// The names whose options are on offer when a clip is chosen that has one of them.
constexpr std::array<std::string_view, 6> kWithParticleKey = {"Whirlwind Up", "Shatter Down", "Shatter Right",
                                                              "Shatter In",   "Shatter Out",  "Whirlwind"};

std::string shownName(const Movie& clip) { return std::string(cutTo(listedName(clip), kMaxName)); }

// A correction is no change of the user's.
template <class Work>
void quietly(Movie& clip, Work work) {
  const bool wasDirty = clip.IsDirty();
  work();
  clip.IsDirty(wasDirty);
}

// All that a sample shows of a clip.
std::string lookOf(const Movie& clip, int number) {
  std::string look = std::to_string(number);
  for (const auto& part :
       {clip.TransType(), ShortText(clip.TransIn()), clip.LoopStart().text(), clip.LoopEnd().text(),
        ShortText(clip.Playspeed()), clip.ExtraParamValue1(), clip.ExtraParamValue2(),
        std::to_string(clip.BorderWidth()), clip.BorderColor().text(), ShortText(clip.BorderSoftness()),
        std::to_string(clip.ReplicateX()), std::to_string(clip.ReplicateY()), clip.MaskName(),
        clip.EffectWord(), clip.MovieName()}) {
    look += '|' + part;
  }
  return look;
}

}  // namespace

std::string transitionClipsText(const Collection& collection, int clipNo) {
  const auto& clips = collection.MovieList;
  const auto name = shownName(clips[clipNo]);
  return (clipNo == 1 ? std::string("Movie Start") : shownName(clips[clipNo - 1])) + " -->  " + name;
}

TransitionPane paneOf(const TransitionTab& tab) {
  if (!tab.panel.listVisible) return TransitionPane::Hint;
  return tab.particlesOpen ? TransitionPane::Particles : TransitionPane::Tiles;
}

std::string whyNoTiles(const TransitionTab& tab) {
  if (paneOf(tab) == TransitionPane::Tiles) return {};
  return tab.whyNone.empty() ? "Click Transition first" : tab.whyNone;
}

std::string hintOf(const TransitionTab& tab) {
  if (tab.Lst_TransitionMovies.rows().empty()) return "Drop clips or stills on the timeline first";
  if (!tab.Lst_TransitionMovies.hasChoice()) return "Choose a clip at the left";
  return tab.whyNone.empty() ? "The clip follows without a transition.\nClick Transition to choose one."
                             : tab.whyNone;
}

TransitionRules::TransitionRules(const Editing& editing, TransitionTab& tab, TabHost& host, UserStore& store)
    : e_(editing), tab_(tab), host_(host), names_(tab.names, store, "Transition") {
  const auto all = transitionNames();
  names_.offer({all.begin(), all.end()});
}

// The clip in hand, where the list has it and the main window is on it.
Movie* TransitionRules::clip() const {
  const int number = chosenClip(tab_.Lst_TransitionMovies);
  const bool isThere = number >= 1 && number <= e_.clips().count() && number == e_.collection.icurMov;
  return isThere ? &e_.clips()[number] : nullptr;
}

void TransitionRules::enter() {
  sampled_.clear();
  toldTooShort_.reset();
  show(true);
}

void TransitionRules::show(bool rebuild) {
  if (rebuild) tab_.Lst_TransitionMovies.texts.assign(PopulateMovieListBoxes(e_, ListedClips::WithPicture));
  SetMovieLstToMainIndex(e_, tab_.Lst_TransitionMovies);
  Lst_TransitionMovies_MouseUp();
}

void TransitionRules::chooseMovie(int row) {
  tab_.Lst_TransitionMovies.ListIndex = row;
  if (!tab_.Lst_TransitionMovies.hasChoice()) return;
  host_.UpDateFrmFileOpen(chosenClip(tab_.Lst_TransitionMovies), false);
  sampled_.clear();
  toldTooShort_.reset();
  Lst_TransitionMovies_MouseUp();
}

// Gives the record what it lacks and holds its transition within the limit. False where none is possible.
bool TransitionRules::correct(Movie& clip, int number) const {
  if (clip.TransType().empty()) clip.TransType("CUT");
  const Value still(e_.settings.state.DefaultStillDuration);
  if (clip.LoopEnd().text() == "N/A") clip.LoopEnd(still);
  double half = timelineLength(clip) * 10 / 2;
  if (half == 0 && clip.IsStill()) {
    clip.LoopStart(Value(0));
    clip.LoopEnd(still);
    half = timelineLength(clip) * 10 / 2;
  }
  const double most = number == 1 ? half : ToNumber(CalcMaxTransitionDuration(e_, number)) * 10;
  if (most <= 1) {
    if (clip.TransIn() != 0) clip.TransIn(0);
    clip.TransType("CUT");
    return false;
  }
  auto& slider = e_.editor.controls.Sld_In;
  slider.Max = toLongClamped(most);
  if (clip.TransIn() > static_cast<Single>(slider.Max)) clip.TransIn(static_cast<Single>(slider.Max));
  return true;
}

void TransitionRules::Lst_TransitionMovies_MouseUp() {
  auto* clip = this->clip();
  if (clip == nullptr) return showNoClip();
  const int number = e_.collection.icurMov;
  quietly(*clip, [&] { tab_.whyNone = correct(*clip, number) ? "" : kTooShortForTransition; });
  tellTooShort();
  const bool cut = isCut(clip->TransType());
  tab_.Lbl_Tranclips = transitionClipsText(e_.collection, number);
  BuildTransitionFrame();
  auto& panel = tab_.panel;
  const auto* named = std::find(kWithParticleKey.begin(), kWithParticleKey.end(), panel.selected);
  panel.Cmd_ParticleOpts = panel.listVisible && named != kWithParticleKey.end();
  tab_.particlesOpen = tab_.particlesOpen && panel.options.particles;
  if (lookOf(*clip, number) != sampled_) {
    if (cut) host_.KillPreview();
    if (cut || tab_.Sld_In >= 1) askForSample();
  }
  host_.buildClipSliders();
  host_.ShowClipStats();
}

// Once for each time that a clip is chosen, whatever else changes meanwhile.
void TransitionRules::tellTooShort() {
  const auto key = clip()->KeyID();
  if (tab_.whyNone.empty()) return toldTooShort_.reset();
  if (toldTooShort_ == key) return;
  toldTooShort_ = key;
  e_.boxes.show({"KVO - Transition warning", tab_.whyNone, BoxButtons::Ok, BoxIcon::Warning});
}

// Once for each clip and length; the caption says it all the time.
void TransitionRules::warnOfShort() {
  const auto* clip = this->clip();
  if (clip == nullptr || !tab_.panel.durationIsShort) return;
  if (warned_.emplace(clip->KeyID(), tab_.Sld_In).second) warnOfShortDuration(e_, tab_.panel);
}

void TransitionRules::showNoClip() {
  tab_.whyNone = "Choose a clip first";
  tab_.particlesOpen = false;
  tab_.panel = {.listVisible = false};
  tab_.Sld_In = 0;
  tab_.inOver = tab_.length = tab_.Lbl_Tranclips = std::string();
  PopulateTransOptsFromObj();
}

// The controls as the record has them.
void TransitionRules::BuildTransitionFrame() {
  auto* clip = this->clip();
  if (clip == nullptr) return showNoClip();
  auto& panel = tab_.panel;
  auto& slider = e_.editor.controls.Sld_In;
  panel.listVisible = !isCut(clip->TransType());
  panel.selected.clear();
  if (panel.listVisible) {
    MatchTransitionToList(e_, panel);
    // One that is not on offer stays what it is.
    if (panel.selected.empty()) panel.selected = clip->TransType();
  }
  panel.options = panel.listVisible ? ShowTransOptions(panel.selected) : TransitionOptionSet();
  panel.currentMask = panel.options.bordersAndMask ? "Current Mask=" + clip->MaskName() : std::string();
  slider.Value = static_cast<double>(clip->TransIn());
  tab_.Sld_In = toLongClamped(slider.Value);
  tab_.Sld_InMax = slider.Max;
  showDuration(e_, panel);
  tab_.inOver = translated("In over %1 Secs", {ShortText(slider.Value / 10)});
  tab_.length = FormatMask(slider.Value / 10, "##0.0");
  PopulateTransOptsFromObj();
}

void TransitionRules::pick(std::string_view name) {
  auto* clip = this->clip();
  if (clip == nullptr || !tab_.whyNone.empty()) return;
  auto& panel = tab_.panel;
  auto& slider = e_.editor.controls.Sld_In;
  panel.listVisible = true;
  panel.selected = name;
  if (slider.Value < 1) slider.Value = std::min<double>(kDefaultLength, slider.Max);
  bool showsParticleKey = panel.Cmd_ParticleOpts;
  host_.edit("Transition", e_.collection.icurMov, kRetime, [&] {
    DoTransition(e_, panel, 1);
    showsParticleKey = panel.Cmd_ParticleOpts;
    PopulateTransOptsFromObj();
    ApplyExtraParams(*clip);
  });
  BuildTransitionFrame();  // as the record has it now, whether or not the edit was let through
  panel.Cmd_ParticleOpts = panel.listVisible && showsParticleKey;
  tab_.particlesOpen = tab_.particlesOpen && panel.options.particles;
  if (clip->TransType() != name) return;
  names_.noteUse(std::string(name));
  if (tab_.Sld_In > 0) askForSample();
  host_.ShowClipStats();
  warnOfShort();
}

void TransitionRules::openParticles(bool open) {
  constexpr int kOpenOptions = 2;
  tab_.particlesOpen = open && tab_.panel.options.particles;
  if (tab_.particlesOpen) DoTransition(e_, tab_.panel, kOpenOptions);
}

void TransitionRules::pickNext(int steps) {
  if (tab_.names.shown.rows().empty()) return;
  const auto found =
      std::find(tab_.names.shown.rows().begin(), tab_.names.shown.rows().end(), tab_.panel.selected);
  const int last = static_cast<int>(tab_.names.shown.rows().size()) - 1;
  const int at = found == tab_.names.shown.rows().end()
                     ? (steps > 0 ? -1 : last + 1)
                     : static_cast<int>(found - tab_.names.shown.rows().begin());
  const int next =
      std::clamp(found == tab_.names.shown.rows().end() ? at + (steps > 0 ? 1 : -1) : at + steps, 0, last);
  if (next != at) pick(std::string(tab_.names.shown.rows()[static_cast<std::size_t>(next)]));
}

void TransitionRules::chooseCut(bool cut) {
  if (clip() == nullptr || cut == !tab_.panel.listVisible) return;
  if (!cut)
    return pick(tab_.names.lastUsed.empty() ? std::string(kFirstTransition) : tab_.names.lastUsed.front());
  tab_.panel.listVisible = false;
  host_.edit("Cut", e_.collection.icurMov, kRetime, [&] { ApplyTransitionDataToObjects(e_, tab_.panel); });
  tab_.panel.Cmd_ParticleOpts = tab_.particlesOpen = false;
  BuildTransitionFrame();
  askForSample();
  host_.ShowClipStats();
}

void TransitionRules::moveDuration(int tenths) {
  if (clip() == nullptr || !tab_.panel.listVisible) return;
  auto& slider = e_.editor.controls.Sld_In;
  slider.Value = std::clamp(tenths, 0, slider.Max);
  const bool showsParticleKey = tab_.panel.Cmd_ParticleOpts;
  const bool changed = host_.edit("Transition length", e_.collection.icurMov, kRetime,
                                  [&] { ApplyTransitionDataToObjects(e_, tab_.panel); });
  BuildTransitionFrame();
  tab_.panel.Cmd_ParticleOpts = showsParticleKey;
  if (!changed) return;
  if (tab_.Sld_In >= 1) askForSample();
  host_.ShowClipStats();
}

void TransitionRules::letGo() { warnOfShort(); }

void TransitionRules::askForSample() {
  const auto* clip = this->clip();
  if (clip == nullptr) return;
  sampled_ = lookOf(*clip, e_.collection.icurMov);
  host_.sample(Sample::Transition, e_.collection.icurMov);
}

}  // namespace kvo
