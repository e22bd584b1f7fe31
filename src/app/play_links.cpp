#include "app/play_links.h"

#include "core/telling/failures.h"

namespace kvo {

std::optional<PlayerPlace> playerPlace(Player& player) {
  if (player.PlayerIsEmpty()) return std::nullopt;
  const auto seen = seenFrame(player);
  return PlayerPlace{seen.seconds, seen.frame};
}

PlayLinks::PlayLinks(const Parts& parts)
    : parts_(parts),
      transport_({parts.window.transport, parts.window.mode, parts.face.player(), parts.face.buttons(),
                  parts.face.display(), parts.timers, parts.settings, parts.collection, parts.files,
                  parts.boxes, parts.loop, parts.desktop, parts.pages, parts.network, parts.http, *this}),
      positions_(
          {parts.loop, parts.face.player(), parts.timers, parts.face.buttons(), parts.window.mode,
           parts.window.positions, parts.window.slider, parts.window.display, parts.window.details.position,
           parts.settings, parts.collection, parts.boxes, transport_, *this},
          {.AddMoviesm = [this] { parts_.media.AddMedia(); }}) {
  parts_.codec.driveBy([this](int number) { transport_.PreviewMovie(number); },
                       [this] { transport_.halt(); });
  parts_.face.showClipsBy([this](int number) { transport_.PreviewMovie(number); },
                          [this](int number) { parts_.codec.Displaymovieinfo(number); });
  parts_.list.whenInHand([this](int number) {
    if (number > 0) return transport_.PreviewMovie(number);
    transport_.empty();
    parts_.face.FadBorder(std::string(kProductName));
  });
  parts_.collections.beforeEach([this] { transport_.halt(); });
  parts_.intro.transport(transport_);
  parts_.mailbox.transport(transport_);
  parts_.history.whenEdited([this](int /*number*/) { positions_.takeRecord(); });
}

void PlayLinks::ordered(MenuCommand tick) {
  if (tick == MenuCommand::mnu_SldFast || tick == MenuCommand::mnu_SldNormal)
    return parts_.timers.Timer5.setInterval(parts_.settings.user.SliderSpeed);
  tick == MenuCommand::mnu_Looping ? transport_.mnu_Looping_Click() : transport_.orderChanged();
}

bool PlayLinks::startUpVideoEnded() {
  const bool running = parts_.intro.IntroRunning();
  if (running) parts_.intro.ended();
  return running;
}

bool PlayLinks::markDragged() const {
  const auto& held = parts_.window.positions.held;
  return held.MarkInDragging || held.MarkOutDragging;
}

bool PlayLinks::edit(std::string_view act, Integer changeCode, const std::function<void(Movie&)>& change,
                     std::string_view series) {
  const int number = parts_.collection.icurMov;
  if (number < 1) return false;
  return parts_.history.edit(CommandPass(parts_.window), stepName(act, parts_.collection, {number}), number,
                             changeCode, change, series);
}

}  // namespace kvo
