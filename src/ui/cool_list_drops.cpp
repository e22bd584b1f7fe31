// Dragging out of the list control and dropping on it.
#include "ui/cool_list_view.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <algorithm>

namespace kvo {
namespace {

constexpr int kScrollEdge = 12;   // pixels at top and bottom in which what is dragged scrolls the list
constexpr int kScrollEvery = 60;  // milliseconds, by a row

}  // namespace

void CoolListView::carryOut() {
  const auto index = list_.itemAt(yInside(*pressedAt_));
  pressedAt_.reset();
  pressWaits_ = false;
  list_.mouseUp();
  auto carried = index ? dragOut(*index) : nullptr;
  if (carried == nullptr) return;
  auto drag = std::make_unique<QDrag>(this);
  drag->setMimeData(carried.release());
  drag.release()->exec(Qt::CopyAction | Qt::MoveAction);  // it deletes itself when it is over
}

void CoolListView::showDropPlace(std::optional<int> before) {
  if (dropBefore_ == before) return;
  dropBefore_ = before;
  update();
}

void CoolListView::drawDropPlace(QPainter& painter) const {
  if (!dropBefore_) return;
  const Painting kept(painter);
  const auto inside = contentsRect();
  const int line = std::max((*dropBefore_ - list_.TopIndex()) * list_.properties().ItemHeight, 1);
  const QPointF head(inside.left() + 4, inside.top() + line);
  painter.setPen(QPen(toColour(token("amber")), 2));
  painter.drawLine(head + QPointF(3, 0), QPointF(inside.right(), head.y()));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(head, 3, 3);
}

void CoolListView::dragEnterEvent(QDragEnterEvent* event) {
  if (accepts && dropped && accepts(*event->mimeData())) event->acceptProposedAction();
}

// At an edge the list goes on while the pointer rests there: -1 up, 1 down, 0 not at all.
int CoolListView::dropEdge() const {
  if (dropAt_ < kScrollEdge) return -1;
  return dropAt_ >= contentsRect().height() - kScrollEdge ? 1 : 0;
}

void CoolListView::showDropPlace() {
  const int height = list_.properties().ItemHeight;
  showDropPlace(std::clamp(list_.TopIndex() + (dropAt_ + height / 2) / height, 0, list_.ListCount()));
}

void CoolListView::scrollToDrop() {
  list_.setTopIndex(list_.TopIndex() + dropEdge());
  showDropPlace();
}

void CoolListView::endDrop() {
  dropScroll_.stop();
  showDropPlace(std::nullopt);
}

void CoolListView::dragMoveEvent(QDragMoveEvent* event) {
  dropAt_ = yInside(event->position());
  if (dropEdge() == 0) dropScroll_.stop();
  if (dropEdge() != 0 && !dropScroll_.isActive()) dropScroll_.start(kScrollEvery, this);
  showDropPlace();
  event->acceptProposedAction();
}

void CoolListView::dragLeaveEvent(QDragLeaveEvent* /*event*/) { endDrop(); }

void CoolListView::dropEvent(QDropEvent* event) {
  const int before = dropBefore_.value_or(list_.ListCount());
  endDrop();
  event->acceptProposedAction();
  dropped(*event->mimeData(), before);
}

}  // namespace kvo
