#include "program/hover_preview.h"

#include "program/clip_texts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

// The line is some 500 pixels long: more places than this nobody tells apart, nor are more pictures kept.
constexpr double kPlaces = 250;

double onGrid(double seconds, double length) {
  const double step = std::max(1.0, std::ceil(length / kPlaces));
  return std::floor(seconds / step) * step;
}

}  // namespace

HoverPreview::HoverPreview(FrameSource& streams, EventLoop& loop, MainWindowState& window)
    : window_(window),
      fetch_(
          loop,
          [&streams](const PictureWish& wish) {
            return streams.frame(wish.path, wish.seconds, wish.width, wish.height);
          },
          [this](const PictureWish& wish, Result<FramePicture> picture) {
            arrived(wish, std::move(picture));
          }) {}

bool HoverPreview::hasPicture() const {
  const auto& rows = window_.list.Fillist.rows();
  const auto index = static_cast<std::size_t>(window_.list.ListIndex);
  return index < rows.size() && rows[index].kind == ClipKind::Video && !window_.mode.player.path.empty();
}

void HoverPreview::over(double part, int width, int height) {
  const double length = window_.slider.length;
  width_ = width;
  height_ = height;
  if (!window_.slider.handles || length <= 0) return left();
  auto& hover = window_.hover;
  hover.visible = true;
  hover.part = std::clamp(part, 0.0, 1.0);
  hover.time = playTimeText(hover.part * length);
  if (!hasPicture()) {
    hover.picture = nullptr;
    return;
  }
  show({window_.mode.player.path, onGrid(hover.part * length, length), width, height});
}

void HoverPreview::show(const PictureWish& wish) {
  const bool sameFile =
      wish.path == wanted_.path && wish.width == wanted_.width && wish.height == wanted_.height;
  if (!sameFile) {
    kept_.clear();
    window_.hover.picture = nullptr;
  }
  const bool isNew = wish != std::exchange(wanted_, wish);
  const auto found = kept_.find(wish.seconds);
  if (found != kept_.end()) {
    window_.hover.picture = found->second;
    fetch_.want(std::nullopt);
  } else if (isNew) {
    fetch_.want(wish);
  }
}

void HoverPreview::arrived(const PictureWish& wish, Result<FramePicture> picture) {
  auto same = wish;
  same.seconds = wanted_.seconds;
  if (same != wanted_) return;
  const auto kept = picture ? std::make_shared<const FramePicture>(std::move(*picture)) : Picture();
  kept_[wish.seconds] = kept;
  if (wish == wanted_ && window_.hover.visible) window_.hover.picture = kept;
}

void HoverPreview::settled() {
  if (window_.hover.visible && window_.mode.player.path != wanted_.path)
    over(window_.hover.part, width_, height_);
}

void HoverPreview::left() {
  window_.hover = {};
  wanted_.seconds = -1;  // what is still on its way is kept, and not shown
  fetch_.want(std::nullopt);
}

}  // namespace kvo
