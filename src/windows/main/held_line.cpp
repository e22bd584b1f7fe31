#include "windows/main/held_line.h"

#include "ui/made.h"
#include "windows/main/slider_handle.h"

#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace kvo {

HeldLine::HeldLine(Acts acts, QWidget* parent) : QWidget(parent), acts_(std::move(acts)) {
  setMouseTracking(true);
}

SliderHandle* HeldLine::addHandle(const QString& name, SliderHandleId id) {
  auto* handle = made<SliderHandle>(name, this);
  handles_.push_back(handle);
  handle->setMouseTracking(true);
  handle->installEventFilter(this);
  handle->hide();
  handle->partAt = [this](const QPoint& global) { return lineAt(mapFromGlobal(global).x()); };
  handle->taken = [this, id] { return acts_.marks.press(id); };
  handle->moving = [this, handle, id](double part) {
    acts_.marks.drag(id, part);
    moved(*handle);
  };
  handle->letGo = [this, id] {
    letGo();
    acts_.marks.release(id, MouseKey::Left);
    acts_.acted();
  };
  handle->put = [this, id](double part) {
    acts_.marks.put(id, part);
    acts_.acted();
  };
  if (id == SliderHandleId::ImageBlob) return handle;
  handle->reset = [this, id] {
    acts_.marks.reset(id);
    acts_.acted();
  };
  return handle;
}

bool HeldLine::isDragged() const {
  return std::any_of(handles_.begin(), handles_.end(), [](const auto* h) { return h->isDragged(); });
}

// What is being dragged is seen in the clip's own picture.
void HeldLine::hoverAt(const QPoint& at) {
  hears(at) && !isDragged() ? acts_.hover(std::clamp(lineAt(at.x()), 0.0, 1.0)) : acts_.hoverEnds();
}

void HeldLine::mouseMoveEvent(QMouseEvent* event) {
  const auto at = event->position().toPoint();
  handles_.front()->dragTo(lineAt(at.x()));
  hoverAt(at);
}

// The position goes there, and on with the pointer.
void HeldLine::mousePressEvent(QMouseEvent* event) {
  const auto at = event->position().toPoint();
  if (event->button() != Qt::LeftButton || !takes(at)) return event->ignore();
  handles_.front()->take();
  handles_.front()->dragTo(lineAt(at.x()));
  hoverAt(at);
}

void HeldLine::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) handles_.front()->drop();
}

bool HeldLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove)
    hoverAt(mapFromGlobal(static_cast<QMouseEvent*>(event)->globalPosition().toPoint()));
  return QWidget::eventFilter(watched, event);
}

void HeldLine::leaveEvent(QEvent* /*event*/) { acts_.hoverEnds(); }

}  // namespace kvo
