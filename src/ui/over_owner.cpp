#include "ui/over_owner.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace kvo {

void showOverOwner(QWidget& window, QWidget& owner) {
  const auto place = owner.frameGeometry();
  const auto room = owner.screen()->availableGeometry();
  const QSize size = window.size().expandedTo(window.minimumSize());
  const auto within = [](int wanted, int first, int last) {
    return std::clamp(wanted, first, std::max(first, last));
  };
  window.move(within(place.center().x() - size.width() / 2, room.left(), room.right() - size.width()),
              within(place.center().y() - size.height() / 2, room.top(), room.bottom() - size.height()));
  window.winId();  // so that there is a window to belong to another
  window.windowHandle()->setTransientParent(owner.windowHandle());
  window.show();
  window.raise();
}

}  // namespace kvo
