// How the editor opens and closes.
#include "core/telling/translated.h"
#include "editor/desk/clip_stats.h"
#include "editor/desk/editor_desk.h"
#include "editor/tabs/effects_file.h"
#include "editor/tabs/operations.h"
#include "editor/tabs/still_options.h"

namespace kvo {
namespace {

constexpr int kMostAnalysing = 65;   // ticks that Frm_Analysing stays for
constexpr int kAnalysingTick = 500;  // milliseconds
constexpr Integer kOpened = 99;

}  // namespace

void EditorDesk::Form_Load() {
  const CommandPass pass(parts_.window);
  if (!pass || isOpen()) return;
  const auto& e = parts_.editing;
  auto& state = parts_.state;
  state.frame.visible = true;
  state.frame.CurrentTab = 1;
  opening_ = true;
  collectionOpened();
  LoopPreviews_ = e.settings.user.LoopPreviews;
  SliderPauseOnRepo_ = e.settings.user.SliderPauseOnRepo;
  run().KVOIsInEditMode = true;
  if (files_.known(e.collection)) return finishOpening();
  state.frame.toolsOn = false;
  state.frame.toolsOffBecause = translated("The files of the clips are still looked into");
  if (e.settings.preferences().KVOFastEdit && e.files.exists(e.folder.beside("\\PreviewDefaults.dat")))
    return;
  state.analysing = {.visible = true, .done = 0, .total = e.clips().count()};
  analysingTicks_ = 0;
  analysing_->start(kAnalysingTick);
}

void EditorDesk::countTick() {
  if (++analysingTicks_ <= kMostAnalysing) return;
  analysing_->stop();
  parts_.state.analysing.visible = false;
}

void EditorDesk::looked(int done, int total) {
  parts_.state.analysing.done = done;
  parts_.state.analysing.total = total;
  if (done == total && opening_ && files_.known(parts_.editing.collection)) finishOpening();
}

void EditorDesk::finishOpening() {
  opening_ = false;
  analysing_->stop();
  parts_.state.analysing = {};
  parts_.state.frame.toolsOn = true;
  parts_.state.frame.toolsOffBecause.clear();
  const auto& e = parts_.editing;
  LoadEffects(e);
  GetStillOpts(e);
  run().ObjectChange = kOpened;
  ticks_ = 0;
  shownClip_ = e.collection.icurMov;
  restoreTabs();
  Buildtabs(1);
  Tmr_CheckChanges_Timer();
  watchChanges(true);
  if (HaveAtleastOneVidTrack(e)) return;
  e.boxes.show({"KVO - No Video Tracks", "No Video Tracks found ?", BoxButtons::Ok, BoxIcon::Information});
}

void EditorDesk::restoreTabs() {
  for (const auto& tab : tabs_) {
    if (tab.restore) tab.restore();
  }
}

void EditorDesk::collectionOpened() {
  parts_.state.frame.caption =
      translated("   Create New Movie from %1", {listCaption(parts_.editing.collection)});
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

void EditorDesk::leave() {
  if (!isOpen()) return;
  auto& user = parts_.editing.settings.user;
  parts_.state.frame.visible = false;  // what is drawn from here on is the main window alone
  KillPreview();
  watchChanges(false);
  analysing_->stop();
  opening_ = false;
  parts_.state.analysing = {};
  run().KVOIsInEditMode = false;
  user.LoopPreviews = LoopPreviews_;
  user.SliderPauseOnRepo = SliderPauseOnRepo_;
}

}  // namespace kvo
