// The samples by which tabs show what they set.
#include "editor/compiler/document_check.h"
#include "editor/preview/position_texts.h"
#include "editor/preview/preview_engine.h"
#include "editor/tabs/transition_tab.h"

#include <utility>

namespace kvo {
namespace {

// Milliseconds.
constexpr int kSampleTick = 250;  // a sample that stands so long is kept in its file
constexpr int kSamplePace = 60;   // between two samples of a slider that is dragged
constexpr std::string_view kSampleDocument = "\\KVOSamp.xtl";

PreviewKind kindOf(Sample what) {
  switch (what) {
    case Sample::Transition:
      return PreviewKind::Transition;
    case Sample::Effect:
      return PreviewKind::Effect;
    case Sample::Colour:
      return PreviewKind::Colour;
    case Sample::Keyframe:
      return PreviewKind::Keyframe;
    case Sample::PictureInPicture:
      return PreviewKind::PictureInPicture;
  }
  return PreviewKind::None;
}

}  // namespace

void PreviewEngine::sample(Sample what, int clipNo) {
  if (!host_.mayEdit() || clipNo < 1 || clipNo > editing_.clips().count()) return;
  wish_ = Wish{what, clipNo};
  if (!pace_->running()) beginWish();
}

std::string PreviewEngine::documentOf(const Wish& wish, SampleSize size) const {
  switch (wish.what) {
    case Sample::Transition:
      return Previewtransition(editing_, wish.clipNo, size);
    case Sample::Effect:
    case Sample::Keyframe:
      return PreviewEffect(editing_, wish.clipNo, size);
    case Sample::Colour:
      return PreviewColourAdjust(editing_, wish.clipNo, size);
    case Sample::PictureInPicture:
      return CreatePinPPreview(editing_, wish.clipNo,
                               {.preview = true, .inShape = size == SampleSize::Shown});
  }
  return {};
}

void PreviewEngine::beginWish() {
  const auto wish = *std::exchange(wish_, std::nullopt);
  pace_->start(kSamplePace);
  if (wish.clipNo > editing_.clips().count()) return;
  auto document = documentOf(wish, SampleSize::Shown);
  if (document.empty()) return;
  const bool goesOn = state_.kind == kindOf(wish.what) && state_.clipNo == wish.clipNo &&
                      state_.PreviewPlaying && GetPreviewPlayState() != PlayState::Ended;
  const double from = goesOn ? secondsOf(GetPreviewPositionFrame()) : 0;
  if (!isSample()) {
    if (state_.kind == PreviewKind::Movie) release();
    movieBar_ = state_.FSB_RenderRange;
    movieCuts_ = std::exchange(state_.cuts, {});
    pace_->start(kSamplePace);
  }
  state_.kind = kindOf(wish.what);
  state_.clipNo = wish.clipNo;
  editing_.settings.state.KeyframePreview = wish.what == Sample::Keyframe;
  state_.title = wish.what == Sample::Transition ? transitionClipsText(editing_.collection, wish.clipNo)
                                                 : titleOf(editing_.clips()[wish.clipNo]);
  state_.overlayPosition = overlayPositionOf(wish);
  state_.PreviewPlaying = false;
  unwritten_ = wish;
  TimerPreview_->start(kSampleTick);
  PreviewIt(std::move(document), from, false);
}

int PreviewEngine::overlayPositionOf(const Wish& wish) const {
  if (wish.what != Sample::PictureInPicture) return 0;
  const auto look = readPicInPic(editing_.clips()[wish.clipNo].HasPicInPic());
  const bool isThere = look && look->overlayClip >= 1 && look->overlayClip <= editing_.clips().count();
  return isThere ? look->position : 0;
}

// A sample that is not followed by another at once is kept as its document.
void PreviewEngine::writeSample() {
  TimerPreview_->stop();
  const auto wish = std::exchange(unwritten_, std::nullopt);
  if (!wish || wish->clipNo > editing_.clips().count()) return;
  const auto path = editing_.folder.beside(kSampleDocument);
  const auto done = writeDocument(editing_.files, path, documentOf(*wish, SampleSize::Kept));
  if (!done) editing_.log.LogError(done.error().text);
}

void PreviewEngine::sampleAnew() {
  if (!isSample() || state_.clipNo < 1) return;
  sample(static_cast<Sample>(static_cast<int>(state_.kind) - static_cast<int>(PreviewKind::Transition)),
         state_.clipNo);
}

}  // namespace kvo
