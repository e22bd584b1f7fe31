#include "editor/preview/standing_picture.h"

#include "base/paths.h"
#include "core/records/media_kinds.h"
#include "editor/preview/position_texts.h"
#include "editor/tabs/clip_checks.h"

#include <utility>

namespace kvo {

StandingPicture::StandingPicture(PreviewState& state, MediaContents& streams, const Files& files,
                                 EventLoop& loop, std::function<void()> draw)
    : state_(state),
      files_(files),
      draw_(std::move(draw)),
      frames_(
          loop,
          [&streams](const Wish& wish) {
            return streams.frame(wish.file, wish.seconds, wish.form.width, wish.form.height);
          },
          [this](const Wish& wish, const Result<FramePicture>& picture) { arrived(wish, picture); }) {}

void StandingPicture::showMark(const std::string& file, double seconds) {
  show(Owner::Mark, {file, seconds, form_});
}

void StandingPicture::showKeyframe(const Movie& clip, Long frame, double rate) {
  show(Owner::Keyframes, {clipFile(clip), rate > 0 ? frame / rate : 0, form_});
}

void StandingPicture::show(Owner owner, Wish wish) {
  if (!std::exchange(frame_, owner)) before_ = state_.picture;
  frames_.want(std::move(wish));
}

void StandingPicture::endMark() {
  if (frame_ != Owner::Mark) return;
  endFrame();
  draw_();
}

void StandingPicture::endFrame() {
  frame_.reset();
  state_.picture = std::exchange(before_, nullptr);
}

void StandingPicture::forget() {
  frame_.reset();
  before_.reset();
  standIn_.reset();
}

void StandingPicture::settle(const Collection& collection, bool keyframesOpen, double seconds,
                             const SampleForm& form) {
  form_ = form;
  const int number = collection.icurMov;
  const bool isAnother = std::exchange(inHand_, number) != number;
  if (state_.PreviewPlaying && !state_.paused) return forget();
  if (frame_ && (isAnother || (frame_ == Owner::Keyframes && !keyframesOpen))) endFrame();
  if (state_.kind != PreviewKind::None || frame_ || !state_.failure.empty()) return standIn_.reset();
  if (number >= 1) return standIn(collection.MovieList[number], seconds);
  standIn_.reset();
  state_.picture.reset();
  state_.title.clear();
}

// The picture before it stands until it is there.
void StandingPicture::standIn(const Movie& clip, double seconds) {
  Wish wish{clipFile(clip), clip.IsStill() ? 0 : seconds, form_};
  const bool isSame = standIn_ == wish;
  if (!isSame) failure_.clear();
  state_.title = failure_.empty() ? titleOf(clip) : isGone_ ? missingText(titleOf(clip)) : failure_;
  if (isSame) return;
  standIn_ = wish;
  const bool isSeen = !isSoundByName(clip.MovieName());
  if (!isSeen) state_.picture.reset();
  if (isSeen) frames_.want(std::move(wish));
}

void StandingPicture::arrived(const Wish& wish, const Result<FramePicture>& picture) {
  if (!(frame_ || standIn_ == wish)) return;
  if (picture) {
    state_.picture = std::make_shared<const Bitmap>(Bitmap{picture->width, picture->height, picture->bgr});
  } else if (!frame_) {
    state_.picture.reset();
    failure_ = picture.error().text;
    isGone_ = !isAddress(wish.file) && !files_.exists(wish.file);
  }
  draw_();
}

}  // namespace kvo
