#include "windows/main/window_place.h"

#include "playback/display/screens.h"

#include <QWidget>

namespace kvo {
namespace {

ScreenArea areaOf(const QPoint& corner, const QWidget& window) {
  return {corner.x(), corner.y(), window.width(), window.height()};
}

void place(QWidget& window, const std::vector<Screen>& screens,
           const std::optional<RememberedPlace>& remembered) {
  if (screens.empty()) return;
  const auto area = placeWindow(screens, remembered, window.width(), window.height(), false);
  window.move(area.left, area.top);
}

}  // namespace

void WindowPlace::restore(QWidget& window) const {
  place(window, desktop_.screens(), rememberedPlace(store_.read(name_)));
}

void WindowPlace::moveTo(QWidget& window, const QPoint& corner) const {
  const auto screens = desktop_.screens();
  place(window, screens, remember(screens, areaOf(corner, window)));
}

void WindowPlace::keep(const QWidget& window, const QPoint& corner) {
  const auto now = text(remember(desktop_.screens(), areaOf(corner, window)));
  if (now != store_.read(name_)) store_.write(name_, now);
}

}  // namespace kvo
