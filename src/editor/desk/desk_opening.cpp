// How the editor opens and closes.
#include "base/paths.h"
#include "core/telling/translated.h"
#include "editor/desk/clip_stats.h"
#include "editor/desk/editor_desk.h"
#include "editor/tabs/effects_file.h"
#include "editor/tabs/operations.h"
#include "editor/tabs/still_options.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr int kAnalysingFrom = 300;    // milliseconds that it may take without a word
constexpr int kAnalysingTick = 500;    // milliseconds
constexpr int kBeginsAfter = 1;        // milliseconds
constexpr int kMostAnalysing = 65;     // ticks that Frm_Analysing stays for
constexpr std::size_t kMostNames = 5;  // of files, in a box
constexpr Integer kOpened = 99;

}  // namespace

void EditorDesk::Form_Load() {
  const CommandPass pass(parts_.window);
  auto& state = parts_.state;
  if (isOpen()) ++state.frame.raises;
  if (!pass || isOpen()) return;
  const auto& e = parts_.editing;
  state.frame.visible = true;
  state.frame.CurrentTab = 1;
  opening_ = true;
  showCaption();
  playhead_.reset();
  LoopPreviews_ = e.settings.user.LoopPreviews;
  SliderPauseOnRepo_ = e.settings.user.SliderPauseOnRepo;
  run().KVOIsInEditMode = true;
  files_.forgetPassedOver();
  if (files_.known(e.collection)) return finishOpening();
  state.frame.toolsOn = false;
  state.frame.toolsOffBecause = translated("The files of the clips are still looked into");
  state.analysing = {};
  state.analysing.total = e.clips().count();
  if (e.settings.preferences().KVOFastEdit && e.files.exists(e.folder.beside("\\PreviewDefaults.dat")))
    return;
  analysingTicks_ = 0;
  analysing_->start(kAnalysingFrom);
}

void EditorDesk::countTick() {
  auto& shown = parts_.state.analysing;
  if (analysingTicks_++ == 0) {
    shown.visible = true;
    const auto& e = parts_.editing;
    const auto film = e.folder.beside("\\maybe.wmv");
    if (!std::exchange(filmWasShown_, true) && e.files.exists(film)) shown.film = film;
    return analysing_->start(kAnalysingTick);
  }
  ++shown.plays;
  if (analysingTicks_ <= kMostAnalysing + 1) return;
  analysing_->stop();
  shown.visible = false;
}

void EditorDesk::looked(const LookedSoFar& news) {
  if (news.done == news.total && looked_) looked_();
  if (news.total == 0) return run().postChange(kOpened, kOpened);
  auto& shown = parts_.state.analysing;
  shown.done = news.done;
  shown.total = news.total;
  shown.file = std::string(fileNamePart(news.next));
  if (opening_ && files_.known(parts_.editing.collection)) finishOpening();
}

void EditorDesk::stopAnalysing() {
  if (!opening_) return;
  const auto left = files_.giveUp();
  finishOpening();
  tellPassedOver(left);
}

void EditorDesk::tellPassedOver(const std::vector<std::string>& files) {
  if (files.empty()) return;
  std::string names;
  for (std::size_t i = 0; i < std::min(files.size(), kMostNames); ++i)
    names += "\n" + std::string(fileNamePart(files[i]));
  if (files.size() > kMostNames) names += "\n...";
  parts_.editing.boxes.show(
      {"KVO - Analysing",
       translated("%1 of %2 clips have not been looked into. They are taken by their names, without their "
                  "sound, until you choose them:%3",
                  {std::to_string(files.size()), std::to_string(parts_.editing.clips().count()), names}),
       BoxButtons::Ok, BoxIcon::Information});
}

void EditorDesk::finishOpening() {
  opening_ = false;
  analysing_->stop();
  parts_.state.analysing = {};
  parts_.state.frame.toolsOn = true;
  parts_.state.frame.toolsOffBecause.clear();
  const auto& e = parts_.editing;
  if (filedEffects_.empty()) {
    LoadEffects(e);
    filedEffects_ = e.editor.effects.text(true);
  }
  GetStillOpts(e);
  run().ObjectChange = kOpened;
  ticks_ = 0;
  followed_ = e.collection.icurMov;
  restoreTabs();
  Buildtabs(1);
  begin_->start(kBeginsAfter);
}

// The window is seen by now: to time many clips takes as long again.
void EditorDesk::begin() {
  begin_->stop();
  const auto& e = parts_.editing;
  Tmr_CheckChanges_Timer();
  watchChanges(true);
  lacksVideo_ = !HaveAtleastOneVidTrack(e);
}

void EditorDesk::restoreTabs() {
  for (const auto& tab : tabs_) {
    if (tab.restore) tab.restore();
  }
}

void EditorDesk::showCaption() {
  parts_.state.frame.caption =
      translated("   Create New Movie from %1", {listCaption(parts_.editing.collection)});
}

void EditorDesk::collectionOpened() {
  showCaption();
  playhead_.reset();
  ++parts_.state.opened;
  if (isOpen() && !opening_) restoreTabs();
  run().postChange(kOpened, kOpened);
}

void EditorDesk::Form_QueryUnload() {
  if (!isOpen()) return;
  leave();
  const auto& e = parts_.editing;
  if (e.clips().empty()) return doors_.empty();
  parts_.list.PreviewMovie(e.collection.icurMov);
}

// What an effect without keyframes begins with is set in the table, and stays for the next run.
void EditorDesk::fileEffects() {
  auto table = parts_.editing.editor.effects.text(true);
  if (filedEffects_.empty() || table == filedEffects_) return;
  const auto done = WriteEffectsArrayToDisk(parts_.editing);
  if (!done) return parts_.editing.log.LogError(done.error().text);
  filedEffects_ = std::move(table);
}

void EditorDesk::leave() {
  if (!isOpen()) return;
  fileEffects();
  auto& user = parts_.editing.settings.user;
  parts_.state.frame.visible = false;  // what is drawn from here on is the main window alone
  KillPreview();
  parts_.preview.showClip();
  watchChanges(false);
  analysing_->stop();
  begin_->stop();
  playhead_.reset();
  opening_ = false;
  parts_.state.analysing = {};
  run().KVOIsInEditMode = false;
  user.LoopPreviews = LoopPreviews_;
  user.SliderPauseOnRepo = SliderPauseOnRepo_;
}

}  // namespace kvo
