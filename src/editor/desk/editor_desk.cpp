#include "editor/desk/editor_desk.h"

#include "base/holding.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/translated.h"
#include "editor/desk/clip_stats.h"
#include "editor/tabs/audio_tab.h"
#include "editor/tabs/clip_checks.h"
#include "editor/tabs/operations.h"
#include "program/shut_down.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr int kWatchInterval = 200;  // milliseconds
constexpr int kFirstCheck = 5;       // ticks until the order of the clips is looked at
constexpr int kLastTick = 550;       // behind which they are counted anew

constexpr Integer kSectionChange = 1;
constexpr Integer kMarkChange = 96;
constexpr Integer kMovedOn = 97;
constexpr Integer kSpeedChange = 98;
constexpr Integer kMembershipChange = 99;

constexpr int kTabCreate = 1;
constexpr int kTabAudio = 2;
constexpr int kTabEffect = 4;
constexpr int kTabOverlay = 7;

constexpr float kHundredthsPerTenth = 10;
constexpr float kLevelTenths = 10;

}  // namespace

EditorDesk::EditorDesk(const Parts& parts, MainWindowDoors doors)
    : parts_(parts),
      doors_(std::move(doors)),
      playhead_({parts.editing, parts.window, parts.loop, parts.list, parts.preview, doors_}),
      files_(parts.loop, parts.streams, [this](const LookedSoFar& news) { looked(news); }),
      Tmr_CheckChanges_(parts.loop.timer([this] { Tmr_CheckChanges_Timer(); })),
      analysing_(parts.loop.timer([this] { countTick(); })),
      begin_(parts.loop.timer([this] { begin(); })),
      snapshots_(
          parts.loop, [this](const Snapshot& wish) { return frameOf(wish); },
          [this](const Snapshot& wish, const Result<FramePicture>& picture) {
            keepSnapshot(wish, picture);
          }) {}

const Movie* EditorDesk::clip() const {
  const auto& collection = parts_.editing.collection;
  return collection.icurMov >= 1 && collection.icurMov <= collection.MovieList.count()
             ? &collection.MovieList[collection.icurMov]
             : nullptr;
}

void EditorDesk::watchChanges(bool on) {
  on ? Tmr_CheckChanges_->start(kWatchInterval) : Tmr_CheckChanges_->stop();
}

void EditorDesk::FrmFileOpenToolsOnOff(bool on) {
  toolsOn_ = on;
  showTools();
  doors_.FrmFileOpenToolsOnOff(on);
}

void EditorDesk::toolsOffFor(const std::string& because) {
  if (offBecause_ == because) return;
  offBecause_ = because;
  showTools();
}

void EditorDesk::showTools() {
  auto& frame = parts_.state.frame;
  frame.toolsOn = toolsOn_ && offBecause_.empty();
  frame.toolsOffBecause = frame.toolsOn         ? ""
                          : offBecause_.empty() ? translated("Stop the preview first")
                                                : offBecause_;
  ShowClipStats();
}

void EditorDesk::restoreCaption() {
  parts_.state.frame.caption =
      translated("   Create New movie from %1", {listName(parts_.editing.collection)});
}

void EditorDesk::deleteWorkFiles() { kvo::deleteWorkFiles(parts_.editing.files, parts_.editing.folder); }

void EditorDesk::hold(bool held) {
  held_ = held;
  if (!held) parts_.history.endSeries();
}

// What writes inside an edit is part of it.
bool EditorDesk::edit(std::string_view act, int clipNo, Integer changeCode,
                      const std::function<void()>& work) {
  if (editing_) {
    work();
    return true;
  }
  const CommandPass pass(parts_.window);
  if (!pass) return false;
  const auto& collection = parts_.editing.collection;
  const bool isOfClip = clipNo >= 1 && clipNo <= collection.MovieList.count();
  auto name = isOfClip ? stepName(std::string(act) + " on", collection, {clipNo})
                       : translated(std::string(act).c_str(), {});
  const auto series = held_ ? std::string(act) + " " + std::to_string(clipNo) : std::string();
  const Holding inside(editing_);
  const bool changed = parts_.history.change(pass, std::move(name), changeCode, work, series);
  if (changed) parts_.preview.movieIsStale();
  return changed;
}

// Tmr_CheckChanges: whatever has changed, by whomever, shows within a tick. Behind a box the collection may
// be another command's too.
void EditorDesk::Tmr_CheckChanges_Timer() {
  if (parts_.window.busy()) return;  // the collection is another command's
  tellLackOfVideo();
  if (++ticks_ == kFirstCheck && !parts_.preview.isPlaying()) IsAudioBeforeVideo(parts_.editing);
  if (ticks_ > kLastTick) ticks_ = 1;
  if (!followsCollection() || parts_.window.busy()) return;
  if (std::exchange(followed_, parts_.editing.collection.icurMov) != parts_.editing.collection.icurMov)
    run().postChange(kMovedOn, kMovedOn);
  if (clip() != nullptr) files_.takeUp(clipFile(*clip()));
  const Integer code = run().ObjectChange;
  if (code == 0 || !files_.known(parts_.editing.collection)) return;
  if (code >= kMembershipChange) membershipChanged();
  if (code > kSectionChange) retime(code > kMovedOn);
  ShowClipStats();
  buildClipSliders();
  // Another clip under the playhead is no reason to leave the picture there.
  const bool wasSought = std::exchange(sought_, 0) == parts_.editing.collection.icurMov;
  if (!wasSought || code != kMovedOn) return followTab(code);
  const Holding inside(following_);
  followTab(code);
}

// Once the window is there for the box to stand over.
void EditorDesk::tellLackOfVideo() {
  if (!std::exchange(lacksVideo_, false)) return;
  parts_.editing.boxes.show(
      {"KVO - No Video Tracks", "No Video Tracks found ?", BoxButtons::Ok, BoxIcon::Information});
}

// False while there is no clip.
bool EditorDesk::followsCollection() {
  auto& state = parts_.state;
  const bool empty = parts_.editing.clips().empty();
  if (std::exchange(state.nothingToPreview, empty) != empty) {
    if (empty) {
      auto& editor = parts_.editing.editor;
      editor.VideoTotalTime = EditorState().VideoTotalTime;
      editor.AudioTotalTime.clear();
      state.totals = editorTotals(editor);
    }
    if (tabs_[kTabCreate - 1].follow) tabs_[kTabCreate - 1].follow(true);
    ++state.timed;
    ShowClipStats();
    buildClipSliders();
  }
  if (empty && state.frame.CurrentTab != kTabCreate) Buildtabs(kTabCreate);
  return !empty;
}

void EditorDesk::membershipChanged() {
  auto& state = parts_.state;
  if (!HaveAtleastOneVidTrack(parts_.editing)) {
    if (parts_.preview.isPlaying()) KillPreview();
    if (state.frame.CurrentTab != kTabCreate) Buildtabs(kTabCreate);
  }
  takeSounds();
}

// The collection's file does not say which clips have sound; their files have been looked into.
void EditorDesk::takeSounds() {
  const auto& e = parts_.editing;
  for (int i = 1; i <= e.clips().count(); ++i) {
    auto& clip = e.clips()[i];
    if (clip.IsStill() || isAddress(clipFile(clip)) || extensionOf(clip.MovieName()) == "M1V") continue;
    const auto facts = e.streams.facts(clipFile(clip));
    if (facts) clip.HasAudio(facts->hasAudio);
  }
}

// The places of clips and music, and what the movie comes to; `isOther` where that may be another than
// before. Documents are compiled elsewhere.
void EditorDesk::retime(bool isOther) {
  const auto& e = parts_.editing;
  timeMovie(e);
  parts_.state.totals = editorTotals(e.editor);
  ++parts_.state.timed;
  if (isOther) parts_.preview.movieIsStale();
}

// The open tab shows the clip that is in hand in the main window.
void EditorDesk::followTab(Integer code) {
  const bool rebuild = code > kSectionChange;
  const int tab = parts_.state.frame.CurrentTab;
  if (tab == kTabEffect && clip() != nullptr && isSoundByName(clip()->MovieName()))
    return Buildtabs(kTabAudio);  // the change stands for the tick to come
  const auto& follow = tabs_[static_cast<std::size_t>(tab - 1)].follow;
  const bool concerned = tab != kTabOverlay || (rebuild && code != kMarkChange);
  if (concerned) {
    if (tab == kTabOverlay) KillPreview();
    if (follow) follow(rebuild);
  }
  run().ObjectChange = 0;
}

void EditorDesk::Buildtabs(int tab) {
  KillPreview();
  tab = std::clamp(tab, kTabCreate, kEditorTabs);
  parts_.state.frame.CurrentTab = tab;
  const auto& enter = tabs_[static_cast<std::size_t>(tab - 1)].enter;
  if (enter) enter();
  followed_ = parts_.editing.collection.icurMov;
  ShowClipStats();
}

void EditorDesk::UpDateFrmFileOpen(int clipNo, bool pause) {
  const auto& e = parts_.editing;
  if (clipNo < 1 || clipNo > e.clips().count() || following_) return;
  const auto& wanted = e.clips()[clipNo];
  const bool holds =
      wanted.IsStill() || sameText(trimmed(fileNamePart(doors_.PlayerGetFileName())), wanted.MovieName());
  if (clipNo != e.collection.icurMov || !holds) {
    parts_.list.PreviewMovie(clipNo);
    playhead_.follow();
    playhead_.loaded();
  } else if (!parts_.preview.isPlaying()) {
    doors_.Displaymovieinfo(clipNo);
  }
  if (!pause) doors_.PlayerPause();
  followed_ = clipNo;
}

void EditorDesk::sample(Sample what, int clipNo) {
  if (!following_) parts_.preview.sample(what, clipNo);
}

void EditorDesk::KillPreview() {
  if (!following_) parts_.preview.KillPreview();
}

void EditorDesk::selectRow(int clipNo) {
  playhead_.lend(clipNo);
  tellSought();
}

// The open tab hears of it as soon as the change watch runs.
void EditorDesk::tellSought() {
  sought_ = parts_.editing.collection.icurMov;
  run().postChange(kMovedOn, kMovedOn);
}

void EditorDesk::movieStands(double seconds) {
  if (playhead_.goTo(seconds)) tellSought();
  ShowClipStats();
  buildClipSliders();
}

void EditorDesk::jog(int pictures) {
  playhead_.step(pictures);
  ShowClipStats();
}

// Behind a preview: the clip in hand is not the one that is previewed any more.
void EditorDesk::Displaymovieinfo() {
  doors_.Displaymovieinfo(parts_.editing.collection.icurMov);
  ShowClipStats();
}

void EditorDesk::ShowClipStats() {
  const int number = parts_.editing.collection.icurMov;
  const auto& commands = parts_.commands;
  const auto place = playhead_.inPlayer();
  parts_.state.frame.saveOffBecause =
      parts_.editing.clips().empty() ? translated("There is nothing to save") : "";
  parts_.state.keys = clipKeys(parts_.editing, number,
                               {.toolsOff = parts_.state.frame.toolsOffBecause,
                                .Split = commands.whyNoCopy(CopyMode::Split, place),
                                .Copy = commands.whyNoCopy(CopyMode::Exact, place),
                                .CopyEnd = commands.whyNoCopy(CopyMode::Tail, place),
                                .Equi = commands.whyNoCopy(CopyMode::EqualChunk, place)});
  if (clip() != nullptr && clip()->IsStream()) return;
  const bool previewing = parts_.state.frame.CurrentTab == kTabCreate && parts_.preview.isPlaying();
  parts_.state.stats = clipStats(parts_.editing, number, previewing);
}

void EditorDesk::buildClipSliders() {
  parts_.state.sliders = clipSliders(parts_.editing, parts_.editing.collection.icurMov);
}

// The movie is timed anew when the hand lets go, and when the step is taken back.
void EditorDesk::moveRate(int hundredths) {
  const auto* inHand = clip();
  if (inHand == nullptr || inHand->IsStill()) return;
  const auto& slider = parts_.state.sliders.Sld_Rate;
  const auto tenths =
      static_cast<Single>(std::clamp(hundredths, slider.Min, slider.Max)) / kHundredthsPerTenth;
  const int number = parts_.editing.collection.icurMov;
  const Integer before = run().ObjectChange;
  edit("Speed", number, kSpeedChange, [&] { parts_.editing.clips()[number].Playspeed(tenths); });
  run().ObjectChange = before;
  buildClipSliders();
}

void EditorDesk::letGoRate() { run().postChange(kSpeedChange, kSpeedChange); }

void EditorDesk::moveLevel(int tenths) {
  const auto* inHand = clip();
  if (inHand == nullptr || inHand->IsStill()) return;
  const auto& slider = parts_.state.sliders.Sld_AudioOut;
  const auto level = static_cast<Single>(std::clamp(tenths, slider.Min, slider.Max)) / kLevelTenths;
  const int number = parts_.editing.collection.icurMov;
  edit("Level", number, kSectionChange, [&] { parts_.editing.clips()[number].AudioOutputLevel(level); });
  buildClipSliders();
}

std::string EditorDesk::saveProject() { return saved(doors_.mnu_SaveShow_Click); }
std::string EditorDesk::saveAgain() { return saved(doors_.saveAgain); }

std::string EditorDesk::saved(const std::function<bool()>& save) const {
  const auto& collection = parts_.editing.collection;
  if (collection.MovieList.empty() || !save()) return {};
  return translated("Saved as %1", {collection.IniName});
}

void EditorDesk::Cmd_Help() const {
  parts_.editing.boxes.show(
      {"KVO - Create Movie",
       translated(
           "A movie is made of the clips in the order of the timeline. Drag a clip to move it, its edges to "
           "shorten it, and its front over the clip before for a transition.\n\n"
           "Each tab works on the chosen clip: Transition leads into it, Effect and Color change its "
           "picture, Stills sets how long pictures are shown, Audio its sound and the music below.\n\n"
           "Preview, or Space, plays the movie; Space halts it and lets it go on, Escape stops it. Ctrl+Z "
           "takes "
           "back whatever was done, Ctrl+S saves."),
       BoxButtons::Ok, BoxIcon::Information});
}

}  // namespace kvo
