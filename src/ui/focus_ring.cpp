#include "ui/focus_ring.h"

#include "ui/made.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QFrame>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>

namespace kvo {
namespace {

bool isByKeyboard(Qt::FocusReason reason, bool lastInputWasKey) {
  switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
      return true;
    case Qt::MouseFocusReason:
      return false;
    default:  // a window was opened, a menu closed
      return lastInputWasKey;
  }
}

// These draw it themselves, inside, where their mark, handle or row is.
bool drawsItsOwn(const QWidget& widget) {
  return qobject_cast<const QCheckBox*>(&widget) != nullptr ||
         qobject_cast<const QRadioButton*>(&widget) != nullptr ||
         qobject_cast<const QSlider*>(&widget) != nullptr ||
         qobject_cast<const QTabBar*>(&widget) != nullptr ||
         qobject_cast<const QFrame*>(&widget) != nullptr || widget.isWindow();
}

}  // namespace

bool showsFocus(const QWidget& widget) {
  return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

FocusRing::FocusRing(QApplication& application) : QObject(&application) {
  application.installEventFilter(this);
}

FocusRing::~FocusRing() { delete frame_.data(); }  // NOLINT(cppcoreguidelines-owning-memory)

void FocusRing::show(QWidget& widget, bool byKeyboard) {
  // The style draws by the same rule, and Qt itself never takes this back.
  widget.window()->setAttribute(Qt::WA_KeyboardFocusChange, byKeyboard);
  if (!byKeyboard || drawsItsOwn(widget)) return hide();
  if (frame_ == nullptr) frame_ = made<QFocusFrame>();
  frame_->setWidget(&widget);
}

void FocusRing::hide() {
  if (frame_ != nullptr) frame_->setWidget(nullptr);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      lastInputWasKey_ = true;
      break;
    case QEvent::MouseButtonPress:
      lastInputWasKey_ = false;
      if (auto* focused = QApplication::focusWidget(); focused != nullptr) {
        show(*focused, false);
        focused->update();
      }
      break;
    case QEvent::FocusIn:
      if (watched->isWidgetType()) {
        show(*static_cast<QWidget*>(watched),
             isByKeyboard(static_cast<QFocusEvent*>(event)->reason(), lastInputWasKey_));
      }
      break;
    case QEvent::FocusOut:
      if (frame_ != nullptr && frame_->widget() == watched) hide();
      break;
    default:
      break;
  }
  return false;
}

}  // namespace kvo
