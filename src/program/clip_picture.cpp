#include "program/clip_picture.h"

#include <utility>

namespace kvo {

ClipPicture::ClipPicture(MediaContents& streams, EventLoop& loop, ClipPictureState& state)
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
  if (wish.path.empty()) {
    state_ = {wish, nullptr, {}, state_.revision + 1};
  } else if (state_.wish.path != wish.path) {
    state_.fault.clear();  // that is told of the other file
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

const ClipRow* rowOnShow(const MainWindowState& state) {
  const auto& rows = state.list.Fillist.rows();
  const auto& player = state.mode.player;
  const int shown = player.clipWaits && player.clip > 0 ? player.clip - 1 : state.list.ListIndex;
  const auto index = static_cast<std::size_t>(shown);
  return index < rows.size() ? &rows[index] : nullptr;
}

PictureWish pictureOf(const MainWindowState& state, std::optional<double> looksAt, int width, int height) {
  const auto* row = rowOnShow(state);
  if (row == nullptr || (row->kind != ClipKind::Video && row->kind != ClipKind::Still)) return {};
  const auto& still = state.mode.still;
  const double stands = state.slider.handles ? state.slider.position * state.slider.length : 0;
  return {still.Img_Still.visible ? still.path : state.mode.player.path, looksAt.value_or(stands), width,
          height};
}

bool showsEngine(const MainWindowState& state, bool looksAt) {
  const auto& player = state.mode.player;
  const auto& come = state.picture;
  const bool looksElsewhere = looksAt && come.picture != nullptr && come.wish.path == player.path;
  return player.shows() && !player.place.parked() && !state.mode.still.Img_Still.visible && !looksElsewhere;
}

}  // namespace kvo
