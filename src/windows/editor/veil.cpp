#include "windows/editor/veil.h"

#include "ui/theme.h"

#include <QEvent>
#include <QPainter>

namespace kvo {
namespace {

constexpr int kVeilAlpha = 128;  // of 255: half of what lies below is seen

}  // namespace

Veil::Veil(QWidget& part) : QWidget(&part) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  part.installEventFilter(this);
  hide();
}

void Veil::cover() {
  setGeometry(parentWidget()->rect());
  raise();
}

bool Veil::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::ChildAdded) cover();
  return QWidget::eventFilter(watched, event);
}

void Veil::paintEvent(QPaintEvent* /*event*/) {
  auto dark = toColour(token("ink1"));
  dark.setAlpha(kVeilAlpha);
  QPainter(this).fillRect(rect(), dark);
}

}  // namespace kvo
