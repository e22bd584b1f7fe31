#include "editor/preview/standing_picture.h"

#include "core/records/media_kinds.h"

#include <utility>

namespace kvo {
namespace {

constexpr int kStandingWidth = 640;  // pixels
constexpr int kStandingHeight = 360;

}  // namespace

StandingPicture::StandingPicture(PreviewState& state, MediaContents& streams, EventLoop& loop,
                                 std::function<void()> draw)
    : state_(state),
      draw_(std::move(draw)),
      frames_(
          loop,
          [&streams](const Wish& wish) {
            return streams.frame(wish.file, wish.seconds, kStandingWidth, kStandingHeight);
          },
          [this](const Wish& wish, const Result<FramePicture>& picture) { arrived(wish, picture); }) {}

void StandingPicture::showMark(const std::string& file, double seconds) {
  show(Owner::Mark, {file, seconds});
}

void StandingPicture::showKeyframe(const Movie& clip, Long frame, double rate) {
  show(Owner::Keyframes, {clipFile(clip), rate > 0 ? frame / rate : 0});
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

void StandingPicture::settle(const Collection& collection, bool keyframesOpen) {
  const int number = collection.icurMov;
  const bool isAnother = std::exchange(inHand_, number) != number;
  if (state_.PreviewPlaying && !state_.paused) return forget();
  if (frame_ && (isAnother || (frame_ == Owner::Keyframes && !keyframesOpen))) endFrame();
  if (state_.kind != PreviewKind::None || frame_ || !state_.failure.empty() || number < 1)
    return standIn_.reset();
  const auto& clip = collection.MovieList[number];
  Wish wish{clipFile(clip), clip.LoopStart().number()};
  if (standIn_ == wish) return;
  standIn_ = wish;
  state_.picture.reset();
  if (!isSoundByName(clip.MovieName())) frames_.want(std::move(wish));
}

void StandingPicture::arrived(const Wish& wish, const Result<FramePicture>& picture) {
  if (!picture || !(frame_ || standIn_ == wish)) return;
  state_.picture = std::make_shared<const Bitmap>(Bitmap{picture->width, picture->height, picture->bgr});
  draw_();
}

}  // namespace kvo
