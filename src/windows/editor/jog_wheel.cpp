#include "windows/editor/jog_wheel.h"

#include "ui/focus_ring.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainterPath>
#include <QWheelEvent>
#include <cmath>
#include <numbers>

namespace kvo {
namespace {

constexpr double kPixelsAFrame = 6;
constexpr double kJogNotch = 120;  // of a mouse's wheel, in eighths of a degree
constexpr int kPage = 10;          // frames
constexpr int kRibs = 88;          // around the wheel
constexpr double kFramesAround = 48;
constexpr double kWheelRadius = 6;

}  // namespace

JogWheel::JogWheel(const QString& name, QWidget* parent) : QWidget(parent) {
  setAccessibleName(name);
  setToolTip(name);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::SizeHorCursor);
}

QSize JogWheel::sizeHint() const { return {themed(232), themed(42)}; }

void JogWheel::turn(double frames) {
  angle_ += frames;
  rest_ += frames;
  const double whole = std::trunc(rest_);
  rest_ -= whole;
  update();
  if (whole != 0 && turned) turned(static_cast<int>(whole));
}

// A drum seen from the side: its ribs crowd towards the two ends.
void JogWheel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const QRectF drum = QRectF(rect()).adjusted(0, themed(4), 0, 0);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(token("glass")));
  painter.drawRoundedRect(drum, themed(kWheelRadius), themed(kWheelRadius));
  const double turn = 2 * std::numbers::pi / kRibs;
  const double at = std::fmod(angle_ / kFramesAround * 2 * std::numbers::pi, turn);
  for (int rib = -kRibs / 4; rib <= kRibs / 4; ++rib) {
    const double angle = rib * turn + at;
    const double depth = std::cos(angle);
    if (depth <= 0.05) continue;
    auto colour = toColour(isEnabled() ? token("line3") : token("line1"));
    colour.setAlphaF(static_cast<float>(depth * depth));
    const double width = std::max(0.6, 2.4 * themeSize() * depth);
    painter.setBrush(colour);
    painter.drawRect(QRectF(drum.center().x() + std::sin(angle) * drum.width() / 2 - width / 2,
                            drum.top() + themed(4), width, drum.height() - themed(8)));
  }
  QLinearGradient light(drum.topLeft(), drum.bottomLeft());
  light.setColorAt(0, QColor(0, 0, 0, 190));
  light.setColorAt(0.35, QColor(0, 0, 0, 0));
  light.setColorAt(0.65, QColor(0, 0, 0, 0));
  light.setColorAt(1, QColor(0, 0, 0, 190));
  painter.setBrush(light);
  painter.drawRoundedRect(drum, themed(kWheelRadius), themed(kWheelRadius));
  painter.fillRect(QRectF(drum.center().x() - themed(1), 0, themed(2), themed(6)),
                   toColour(isEnabled() ? token("amber") : token("line2")));
}

void JogWheel::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  dragging_ = true;
  draggedAt_ = event->position().x();
  rest_ = 0;
}

void JogWheel::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return event->ignore();
  const double moved = event->position().x() - draggedAt_;
  draggedAt_ = event->position().x();
  turn(moved / themed(kPixelsAFrame));
}

void JogWheel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) dragging_ = false;
}

// Away from the user goes on.
void JogWheel::wheelEvent(QWheelEvent* event) {
  turn(event->angleDelta().y() / kJogNotch);
  event->accept();
}

void JogWheel::keyPressEvent(QKeyEvent* event) {
  rest_ = 0;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
      return turn(-1);
    case Qt::Key_Right:
    case Qt::Key_Up:
      return turn(1);
    case Qt::Key_PageDown:
      return turn(-kPage);
    case Qt::Key_PageUp:
      return turn(kPage);
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace kvo
