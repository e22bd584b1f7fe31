#include "program/clip_picture.h"

#include <utility>

namespace kvo {

ClipPicture::ClipPicture(FrameSource& streams, EventLoop& loop, ClipPictureState& state)
    : state_(state),
      fetch_(
          loop,
          [&streams](const PictureWish& wish) {
            return streams.frame(wish.path, wish.seconds, wish.width, wish.height);
          },
          [this](const PictureWish& wish, Result<FramePicture> picture) {
            arrived(wish, std::move(picture));
          }) {}

void ClipPicture::want(const PictureWish& wish) {
  if (wish == wanted_) return;
  wanted_ = wish;
  if (state_.wish.path != wish.path) {
    state_ = {wish, nullptr, {}, state_.revision + 1};
  }
  fetch_.want(wish.path.empty() ? std::nullopt : std::optional(wish));
}

// One of the same file that is no longer the one that is wanted is nearer to that than what is shown.
void ClipPicture::arrived(const PictureWish& wish, Result<FramePicture> picture) {
  if (wish.path != wanted_.path) return;
  state_.wish = wish;
  state_.picture = picture ? std::make_shared<const FramePicture>(std::move(*picture)) : nullptr;
  state_.fault = picture ? std::string() : picture.error().text;
  ++state_.revision;
}

}  // namespace kvo
