#include "ui/face_drag.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWidget>
#include <QWindow>

namespace kvo {

FaceDrag::FaceDrag(QWidget& window) : QObject(&window), window_(window) { window.installEventFilter(this); }

bool FaceDrag::press(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) return false;
  pressed_ = event.globalPosition().toPoint();
  return true;
}

// The window manager moves it, where there is one that does. It is asked once the pointer has gone some way:
// a button that is up again before it hears would leave the window hanging at the pointer.
void FaceDrag::move(const QPoint& pointer) {
  if (pressed_) {
    if ((pointer - *pressed_).manhattanLength() < QGuiApplication::styleHints()->startDragDistance()) return;
    auto* const handle = window_.windowHandle();
    if (handle == nullptr || !handle->startSystemMove()) grip_ = *pressed_ - window_.pos();
    pressed_.reset();
  }
  if (grip_) window_.move(pointer - *grip_);
}

bool FaceDrag::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      if (!pressed_ && !grip_) return false;
      move(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
      return true;
    case QEvent::MouseButtonRelease:
      pressed_.reset();
      grip_.reset();
      return false;
    default:
      return false;
  }
}

}  // namespace kvo
