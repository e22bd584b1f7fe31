#include "ui/hover_key.h"

#include <QKeyEvent>

namespace kvo {

HoverKey::HoverKey(QWidget* parent) : QAbstractButton(parent) { setFocusPolicy(Qt::StrongFocus); }

void HoverKey::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void HoverKey::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void HoverKey::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

}  // namespace kvo
