#include "ui/over_owner.h"

#include "ui/owner_place.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace kvo {

void showOverOwner(QWidget& window, QWidget& owner) {
  const QSize size = window.size().expandedTo(window.minimumSize());
  window.move(overOwner(owner.frameGeometry(), owner.screen()->availableGeometry(), size));
  window.winId();  // so that there is a window to belong to another
  window.windowHandle()->setTransientParent(owner.windowHandle());
  window.show();
  window.raise();
}

}  // namespace kvo
