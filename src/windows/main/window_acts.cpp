#include "windows/main/window_acts.h"

#include "ui/dropped_files.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace kvo {

WindowActs::WindowActs(const MainWindowState& state, const Logic& logic, std::function<void()> acted)
    : state_(state), logic_(logic), acted_(std::move(acted)), menu_(logic.menu, acted_) {}

void WindowActs::serve(QWidget& window, const std::vector<QWidget*>& always) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
  for (auto* child : window.findChildren<QWidget*>()) {
    const auto isOf = [child](const QWidget* free) { return free == child || free->isAncestorOf(child); };
    if (std::ranges::none_of(always, isOf)) child->installEventFilter(this);
  }
  menu_.addShortcuts(window);
}

void WindowActs::openMenu(const QPoint& at, QWidget& window) {
  menu_.openWindowMenu(at, &window);
  acted_();
}

void WindowActs::openListMenu(const QPoint& at, QWidget& window) {
  menu_.openListMenu(at, &window);
  acted_();
}

void WindowActs::openSortMenu(const QPoint& at, QWidget& window) {
  menu_.openSortMenu(at, &window);
  acted_();
}

void WindowActs::openZoomMenu(const QPoint& at, QWidget& window) {
  menu_.openZoomMenu(at, &window);
  acted_();
}

void WindowActs::choose(MenuCommand command) {
  logic_.menu.choose({.command = command});
  acted_();
}

bool WindowActs::key(const QString& typed) {
  return typed.size() == 1 && keyCommand(static_cast<unsigned char>(typed.front().toLatin1()));
}

bool WindowActs::keyCommand(int key) {
  if (state_.busy() || !state_.face.controlsEnabled) return false;
  const bool done = logic_.positions.keys.KeyCommand(key);
  if (done) acted_();
  return done;
}

// Keys that no control of the window has taken.
bool WindowActs::pressKey(QWidget& window, const QKeyEvent& event) {
  if (event.key() == Qt::Key_F10) {  // the Menu key comes as an event of its own
    openMenu(window.mapToGlobal(QPoint(window.width() / 3, window.height() / 3)), window);
    return true;
  }
  if (event.key() == Qt::Key_F11 || event.key() == Qt::Key_Escape) {
    if (state_.busy()) return true;  // a load is under way: there may be no clip to place
    const bool covers = event.key() == Qt::Key_F11;
    if (covers) logic_.display.coverOrBack();
    const bool done = covers || logic_.display.stepBack();
    if (done) acted_();
    return done;
  }
  const bool isCommand =
      (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (isCommand) return false;
  if (event.key() == Qt::Key_Left) return keyCommand(KeyCommands::kArrowLeft);
  if (event.key() == Qt::Key_Right) return keyCommand(KeyCommands::kArrowRight);
  return key(event.text());
}

void WindowActs::close(QEvent& event) {
  event.setAccepted(logic_.shutDown.exit());
  acted_();
}

// What is held when a load begins can still be let go.
bool WindowActs::eventFilter(QObject* watched, QEvent* event) {
  auto& widget = *static_cast<QWidget*>(watched);
  if (widget.isWindow()) return windowEvent(widget, *event);
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::KeyPress:
    case QEvent::Drop:
      return state_.busy();
    default:
      return false;
  }
}

bool WindowActs::windowEvent(QWidget& window, QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
      close(event);
      return true;
    case QEvent::ContextMenu:
      openMenu(static_cast<QContextMenuEvent&>(event).globalPos(), window);
      return true;
    case QEvent::KeyPress:
      return pressKey(window, static_cast<QKeyEvent&>(event));
    case QEvent::DragEnter: {
      auto& drag = static_cast<QDragEnterEvent&>(event);
      if (!drag.mimeData()->hasUrls()) return false;
      drag.acceptProposedAction();
      return true;
    }
    case QEvent::Drop: {
      auto& drop = static_cast<QDropEvent&>(event);
      drop.acceptProposedAction();
      logic_.mailbox.takeDropped(droppedFiles(*drop.mimeData()));
      acted_();
      return true;
    }
    default:
      return false;
  }
}

}  // namespace kvo
