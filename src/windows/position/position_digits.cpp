#include "windows/position/position_digits.h"

#include "ui/digit_display.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace kvo {
namespace {

constexpr double kLargeDigits = 36;
constexpr double kReadingFrom = 226;  // pixels at size 1
constexpr double kSmallText = 11;
constexpr int kNotch = 120;  // of a wheel
constexpr int kPageOfIncrements = 10;

}  // namespace

PositionDigits::PositionDigits(const PositionerState& state, Positioner& positioner,
                               std::function<void()> acted, QWidget* parent)
    : QWidget(parent), state_(state), positioner_(positioner), acted_(std::move(acted)) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Position"));
  setToolTip(tr("Type a place and press Enter, or go there by the wheel and the arrow keys"));
}

void PositionDigits::setScale(double scale) {
  scale_ = scale;
  update();
}

void PositionDigits::draw() {
  if (drawn_ == state_) return;
  drawn_ = state_;
  const auto& digits = state_.typed.empty() ? state_.digits : state_.typed;
  setAccessibleDescription(QString::fromStdString(digits) + " " + told(state_.unit));
  update();
}

void PositionDigits::keyPressEvent(QKeyEvent* event) {
  const auto typed = QString::fromStdString(state_.typed);
  switch (event->key()) {
    case Qt::Key_Up:
      positioner_.nudge(1);
      break;
    case Qt::Key_Down:
      positioner_.nudge(-1);
      break;
    case Qt::Key_PageUp:
      positioner_.nudge(kPageOfIncrements);
      break;
    case Qt::Key_PageDown:
      positioner_.nudge(-kPageOfIncrements);
      break;
    case Qt::Key_Backspace:
      positioner_.type(typed.left(typed.size() - 1).toStdString());
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (typed.isEmpty()) return event->ignore();
      positioner_.goToTyped();
      break;
    default: {
      const auto text = event->text();
      const bool figure = text.size() == 1 && (text[0].isDigit() || text[0] == '.' || text[0] == ',');
      if (!figure) return event->ignore();
      positioner_.type((typed + (text[0] == ',' ? QString(".") : text)).toStdString());
    }
  }
  acted_();
}

void PositionDigits::wheelEvent(QWheelEvent* event) {
  if (const int notches = event->angleDelta().y() / kNotch; notches != 0) positioner_.nudge(notches);
  acted_();
}

void PositionDigits::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  painter.setPen(QPen(toColour(hasFocus() ? token("teal") : token("line2")), 1));
  painter.setBrush(toColour(token("glass")));
  painter.drawRoundedRect(onPixels(rect()), 8 * scale_, 8 * scale_);
  const bool typing = !state_.typed.empty();
  const auto digits = QString::fromStdString(typing ? state_.typed : state_.digits);
  const double high = kLargeDigits * scale_;
  const double right = kReadingFrom * scale_ - high * 0.3;
  drawDigits(painter, {right - widthOfDigits(high, digits), (height() - high) / 2}, high, digits,
             typing ? token("amber") : token("tealHi"));
  const QRectF side(kReadingFrom * scale_, 0, width() - kReadingFrom * scale_ - 6 * scale_, height());
  auto font = painter.font();
  font.setPixelSize(qRound(kSmallText * scale_));
  painter.setFont(font);
  painter.setPen(toColour(token("text2")));
  painter.drawText(QRectF(side.left(), 0, side.width(), height() / 2.0 - 2),
                   Qt::AlignHCenter | Qt::AlignBottom, told(state_.unit));
  painter.setFont(numberFont(9.5 * scale_));
  painter.setPen(toColour(token("text3")));
  painter.drawText(QRectF(side.left(), height() / 2.0 + 2, side.width(), height() / 2.0),
                   Qt::AlignHCenter | Qt::AlignTop,
                   QString::fromStdString(state_.reading).replace(" of ", "\nof "));
}

}  // namespace kvo
