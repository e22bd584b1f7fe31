#include "program/clip_picture.h"

#include <utility>

namespace kvo {

ClipPicture::ClipPicture(FrameSource& streams, EventLoop& loop, ClipPictureState& state)
    : streams_(streams), loop_(loop), state_(state) {}

ClipPicture::~ClipPicture() { *lives_ = false; }

void ClipPicture::want(const PictureWish& wish) {
  if (wish == wanted_) return;
  wanted_ = wish;
  if (state_.wish.path != wish.path) {
    state_ = {wish, nullptr, {}, state_.revision + 1};
  }
  if (!thread_.joinable() && !wish.path.empty()) {
    thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
  }
  {
    const std::lock_guard lock(mutex_);
    next_ = wish.path.empty() ? std::nullopt : std::optional(wish);
  }
  told_.notify_one();
}

void ClipPicture::work(const std::stop_token& stop) {
  for (;;) {
    PictureWish wish;
    {
      std::unique_lock lock(mutex_);
      if (!told_.wait(lock, stop, [this] { return next_.has_value(); })) return;
      wish = *std::exchange(next_, std::nullopt);
    }
    auto picture = std::make_shared<Result<FramePicture>>(
        streams_.frame(wish.path, wish.seconds, wish.width, wish.height));
    loop_.post([this, lives = lives_, wish, picture] {
      if (*lives) arrived(wish, std::move(*picture));
    });
  }
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
