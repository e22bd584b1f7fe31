// What mouse, wheel, keys and drops do on the timeline.
#include "ui/dropped_files.h"
#include "ui/theme.h"
#include "windows/editor/timeline_view.h"

#include <QContextMenuEvent>
#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>
#include <array>

namespace kvo {
namespace {

constexpr int kScrollEvery = 30;  // milliseconds
constexpr double kNotch = 120;    // eighths of a degree

TimelineHeld heldKeys(Qt::KeyboardModifiers keys) {
  return {keys.testFlag(Qt::ShiftModifier), keys.testFlag(Qt::ControlModifier),
          keys.testFlag(Qt::AltModifier)};
}

struct KeyRow {
  int key = 0;
  TimelineKey does = TimelineKey::Escape;
};
constexpr std::array kKeys = {KeyRow{Qt::Key_Left, TimelineKey::Before},
                              KeyRow{Qt::Key_Right, TimelineKey::After},
                              KeyRow{Qt::Key_Home, TimelineKey::First},
                              KeyRow{Qt::Key_End, TimelineKey::Last},
                              KeyRow{Qt::Key_PageUp, TimelineKey::PageBack},
                              KeyRow{Qt::Key_PageDown, TimelineKey::PageOn},
                              KeyRow{Qt::Key_BracketLeft, TimelineKey::EdgeIn},
                              KeyRow{Qt::Key_BracketRight, TimelineKey::EdgeOut},
                              KeyRow{Qt::Key_Return, TimelineKey::Open},
                              KeyRow{Qt::Key_Enter, TimelineKey::Open},
                              KeyRow{Qt::Key_Delete, TimelineKey::Remove},
                              KeyRow{Qt::Key_C, TimelineKey::Copy},
                              KeyRow{Qt::Key_X, TimelineKey::Split},
                              KeyRow{Qt::Key_Plus, TimelineKey::ZoomIn},
                              KeyRow{Qt::Key_Equal, TimelineKey::ZoomIn},
                              KeyRow{Qt::Key_Minus, TimelineKey::ZoomOut},
                              KeyRow{Qt::Key_0, TimelineKey::Whole},
                              KeyRow{Qt::Key_Escape, TimelineKey::Escape}};

// With Ctrl only the arrows are the timeline's, and a letter with Shift is another command.
std::optional<TimelineKey> timelineKey(const QKeyEvent& event) {
  const auto held = event.modifiers() & ~Qt::KeypadModifier;
  const bool isArrow = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
  const bool isLetter = event.key() == Qt::Key_C || event.key() == Qt::Key_X;
  if ((held & (Qt::AltModifier | Qt::MetaModifier)) != Qt::NoModifier) return std::nullopt;
  if (held.testFlag(Qt::ControlModifier) && !isArrow) return std::nullopt;
  if (held.testFlag(Qt::ShiftModifier) && isLetter) return std::nullopt;
  for (const auto& row : kKeys) {
    if (row.key == event.key()) return row.does;
  }
  return std::nullopt;
}

}  // namespace

void TimelineView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QFrame::mousePressEvent(event);
  logic_.hand.press(pointOf(event->position()), heldKeys(event->modifiers()));
  settle();
}

void TimelineView::mouseMoveEvent(QMouseEvent* event) {
  const auto was = logic_.state.hover;
  logic_.hand.move(pointOf(event->position()), heldKeys(event->modifiers()));
  if (!logic_.state.drag) {
    if (!(was == logic_.state.hover)) showPointer();
    return;
  }
  if (!scrolling_.isActive()) scrolling_.start(kScrollEvery, this);
  settle();
}

void TimelineView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QFrame::mouseReleaseEvent(event);
  scrolling_.stop();
  logic_.hand.release();
  settle();
}

void TimelineView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QFrame::mouseDoubleClickEvent(event);
  logic_.hand.doubleClick(pointOf(event->position()));
  settle();
}

void TimelineView::leaveEvent(QEvent* /*event*/) {
  logic_.hand.leave();
  showPointer();
}

void TimelineView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != scrolling_.timerId()) return QFrame::timerEvent(event);
  if (logic_.hand.scrollOn()) settle();
}

void TimelineView::wheelEvent(QWheelEvent* event) {
  const auto turned = event->angleDelta();
  logic_.hand.wheel(pointOf(event->position()), turned.x() / kNotch, turned.y() / kNotch,
                    heldKeys(event->modifiers()));
  event->accept();
  settle();
}

bool TimelineView::pinch(const QNativeGestureEvent& event) {
  if (event.gestureType() != Qt::ZoomNativeGesture) return false;
  logic_.hand.pinch(pointOf(event.position()), 1 + event.value());
  settle();
  return true;
}

void TimelineView::keyPressEvent(QKeyEvent* event) {
  const auto key = timelineKey(*event);
  if (!key || !logic_.hand.key(*key, heldKeys(event->modifiers()))) return QFrame::keyPressEvent(event);
  scrolling_.stop();
  settle();
}

void TimelineView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Mouse) {
    const auto at = event->globalPos();
    logic_.hand.openMenu(pointOf(event->pos()), at.x(), at.y());
  } else {
    const auto at = mapToGlobal(blockRect(logic_.state.marks.clip).center());
    logic_.hand.openMenuInHand(at.x(), at.y());
  }
  settle();
}

void TimelineView::dragEnterEvent(QDragEnterEvent* event) {
  if (!event->mimeData()->hasUrls() || logic_.state.onlyShows) return;
  event->acceptProposedAction();
}

void TimelineView::dragMoveEvent(QDragMoveEvent* event) {
  logic_.hand.dragFiles(pointOf(event->position()));
  event->acceptProposedAction();
  update();
}

void TimelineView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
  logic_.hand.leaveFiles();
  update();
}

void TimelineView::dropEvent(QDropEvent* event) {
  logic_.hand.dragFiles(pointOf(event->position()));
  event->acceptProposedAction();
  logic_.hand.dropFiles(droppedFiles(*event->mimeData()));
  settle();
}

}  // namespace kvo
