#include "ui/face_drag.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace kvo {

FaceDrag::FaceDrag(QWidget& window) : QObject(&window), window_(window) { window.installEventFilter(this); }

bool FaceDrag::press(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) return false;
  if (part_ && !part_->contains(event.position().toPoint())) return false;
  auto* const handle = window_.windowHandle();
  // The window manager moves it, where there is one that does.
  if (handle != nullptr && handle->startSystemMove()) return true;
  grip_ = event.globalPosition().toPoint() - window_.pos();
  return true;
}

bool FaceDrag::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      if (grip_) window_.move(static_cast<QMouseEvent*>(event)->globalPosition().toPoint() - *grip_);
      return grip_.has_value();
    case QEvent::MouseButtonRelease:
      grip_.reset();
      return false;
    default:
      return false;
  }
}

}  // namespace kvo
