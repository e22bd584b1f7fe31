#include "windows/place/window_place.h"

#include "playback/display/screens.h"

#include <QWidget>

namespace kvo {
namespace {

ScreenArea areaOf(const QPoint& corner, const QWidget& window) {
  return {corner.x(), corner.y(), window.width(), window.height()};
}

enum class Size { Stays, IsKept };

// A place is that of the frame's corner, a size that of what is inside: the frame takes its part of the room.
void place(QWidget& window, std::vector<Screen> screens, const std::optional<RememberedPlace>& remembered,
           Size size = Size::Stays) {
  if (screens.empty()) return;
  auto frame = window.frameGeometry().size() - window.size();
  if (size == Size::IsKept) {
    frame = frame.expandedTo(
        {kFrameOfDesktop.left() + kFrameOfDesktop.right(), kFrameOfDesktop.top() + kFrameOfDesktop.bottom()});
  }
  for (auto& screen : screens) {
    screen.available.width -= frame.width();
    screen.available.height -= frame.height();
  }
  const auto area = placeWindow(screens, remembered, window.width(), window.height(), size == Size::IsKept);
  if (size == Size::IsKept) window.resize(area.width, area.height);
  window.move(area.left, area.top);
}

}  // namespace

bool WindowPlace::isKept() const { return rememberedPlace(store_.read(name_)).has_value(); }

void WindowPlace::restoreWithSize(QWidget& window) const {
  place(window, desktop_.screens(), rememberedPlace(store_.read(name_)), Size::IsKept);
}

void WindowPlace::restore(QWidget& window) const {
  place(window, desktop_.screens(), rememberedPlace(store_.read(name_)));
}

void WindowPlace::moveTo(QWidget& window, const QPoint& corner) const {
  const auto screens = desktop_.screens();
  place(window, screens, remember(screens, areaOf(corner, window)));
}

void WindowPlace::keep(const QWidget& window, const QPoint& corner) const {
  const auto now = text(remember(desktop_.screens(), areaOf(corner, window)));
  if (now != store_.read(name_)) store_.write(name_, now);
}

}  // namespace kvo
