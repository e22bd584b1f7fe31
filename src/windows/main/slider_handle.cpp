#include "windows/main/slider_handle.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

namespace kvo {
namespace {

constexpr double kHandleStep = 0.01;
constexpr double kHandleFineStep = 0.001;  // with Ctrl

}  // namespace

SliderHandle::SliderHandle(const QString& name, QWidget* parent) : QAbstractSlider(parent) {
  setOrientation(Qt::Horizontal);
  setRange(0, kSteps);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(name);
  setToolTip(name);
  setProperty("ringInset", QPoint(1, 4));  // it takes the mouse above and below what is seen of it
}

void SliderHandle::setPicture(const QPixmap& picture) {
  picture_ = picture;
  update();
}

void SliderHandle::setPart(double part) {
  if (!isDragged()) move(part);
}

void SliderHandle::move(double part) {
  part_ = std::clamp(part, 0.0, 1.0);
  setValue(qRound(part_ * kSteps));
}

void SliderHandle::keyPressEvent(QKeyEvent* event) {
  const double step = event->modifiers().testFlag(Qt::ControlModifier) ? kHandleFineStep : kHandleStep;
  double to = part_;
  switch (event->key()) {
    case Qt::Key_Left:
      to -= step;
      break;
    case Qt::Key_Right:
      to += step;
      break;
    case Qt::Key_Home:
      to = 0;
      break;
    case Qt::Key_End:
      to = 1;
      break;
    default:
      return event->ignore();
  }
  put(std::clamp(to, 0.0, 1.0));
}

void SliderHandle::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton && reset) return reset();
  if (event->button() != Qt::LeftButton) return event->ignore();
  grip_ = part_ - partAt(event->globalPosition().toPoint());
  take();
}

void SliderHandle::take() { setSliderDown(taken()); }

void SliderHandle::dragTo(double part) {
  if (!isDragged()) return;
  move(part);
  if (moving) moving(part_);
}

void SliderHandle::drop() {
  if (!isDragged()) return;
  setSliderDown(false);
  letGo();
}

void SliderHandle::mouseMoveEvent(QMouseEvent* event) {
  if (isDragged()) dragTo(partAt(event->globalPosition().toPoint()) + grip_);
}

void SliderHandle::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) drop();
}

// The line is not scrolled.
void SliderHandle::wheelEvent(QWheelEvent* event) { event->ignore(); }

void SliderHandle::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.5);
  painter.drawPixmap(pictureAt, picture_);
}

}  // namespace kvo
