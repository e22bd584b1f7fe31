#include "ui/digit_display.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QTransform>
#include <array>
#include <cmath>

namespace kvo {
namespace {

// All in heights of a digit.
constexpr double kWidth = 0.56;
constexpr double kBar = 0.135;
constexpr double kGap = 0.019;  // between the ends of bars that meet
constexpr double kAdvance = 0.76;
constexpr double kPointAdvance = 0.22;
constexpr double kColonAdvance = 0.443;
constexpr double kColonMiddle = 0.121;
constexpr double kDot = 0.081;
constexpr double kLean = 0.0875;  // 5 degrees
constexpr double kPadding = 8;    // pixels about the digits
constexpr int kBars = 7;

constexpr std::array<std::uint8_t, 10> kDigits = {0x7D, 0x50, 0x37, 0x57, 0x5A, 0x4F, 0x6F, 0x51, 0x7F, 0x5F};
constexpr std::uint8_t kMinus = 0x02;

// From `x`, `y` on along `length`, with pointed ends.
QPolygonF bar(double x, double y, double length, bool lies) {
  const double half = kBar / 2;
  const auto at = [&](double along, double across) {
    return lies ? QPointF(x + along, y + across) : QPointF(x + across, y + along);
  };
  return {{at(0, 0), at(half, -half), at(length - half, -half), at(length, 0), at(length - half, half),
           at(half, half)}};
}

QPolygonF barOf(int number) {
  constexpr double half = kBar / 2;
  constexpr double lying = kWidth - kBar - 2 * kGap;
  constexpr double standing = 0.5 - half - 2 * kGap;
  switch (number) {
    case 0:
      return bar(half + kGap, half, lying, true);
    case 1:
      return bar(half + kGap, 0.5, lying, true);
    case 2:
      return bar(half + kGap, 1 - half, lying, true);
    case 3:
      return bar(half, half + kGap, standing, false);
    case 4:
      return bar(kWidth - half, half + kGap, standing, false);
    case 5:
      return bar(half, 0.5 + kGap, standing, false);
    default:
      return bar(kWidth - half, 0.5 + kGap, standing, false);
  }
}

double advanceOf(QChar character) {
  return character == '.' ? kPointAdvance : character == ':' ? kColonAdvance : kAdvance;
}

void drawCharacter(QPainter& painter, double pen, QChar character, const QColor& lit) {
  painter.setBrush(lit);
  if (character == '.') return painter.drawEllipse(QPointF(pen, 0.9325), kDot, kDot);
  if (character == ':') {
    painter.drawEllipse(QPointF(pen + kColonMiddle, 0.31), kDot, kDot);
    return painter.drawEllipse(QPointF(pen + kColonMiddle, 0.69), kDot, kDot);
  }
  const auto bars = digitBars(character.toLatin1());
  for (int i = 0; i < kBars; ++i) {
    painter.setBrush(((bars >> i) & 1) != 0 ? lit : toColour(token("unlit")));
    painter.drawPolygon(barOf(i).translated(pen, 0));
  }
}

}  // namespace

std::uint8_t digitBars(char character) {
  if (character == '-') return kMinus;
  return character >= '0' && character <= '9' ? kDigits[static_cast<std::size_t>(character - '0')]
                                              : std::uint8_t{0};
}

double widthOfDigits(double height, const QString& text) {
  double width = 0;
  for (const auto character : text) width += advanceOf(character);
  return (width + kLean) * height;
}

double drawDigits(QPainter& painter, const QPointF& at, double height, const QString& text, Rgb lit) {
  const Painting kept(painter);
  painter.setPen(Qt::NoPen);
  painter.translate(at);
  painter.scale(height, height);
  painter.setTransform(QTransform(1, 0, -kLean, 1, kLean, 0), true);  // upright at the foot
  double pen = 0;
  for (const auto character : text) {
    drawCharacter(painter, pen, character, toColour(lit));
    pen += advanceOf(character);
  }
  return widthOfDigits(height, text);
}

DigitDisplay::DigitDisplay(double digitHeight, QWidget* parent) : QWidget(parent), digitHeight_(digitHeight) {
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void DigitDisplay::setText(const QString& text) {
  if (text_ == text) return;
  text_ = text;
  setAccessibleDescription(text);
  updateGeometry();
  update();
}

QSize DigitDisplay::sizeHint() const {
  return {static_cast<int>(std::ceil(widthOfDigits(digitHeight_, text_) + 2 * kPadding)),
          static_cast<int>(std::ceil(digitHeight_ + 2 * kPadding))};
}

void DigitDisplay::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(toColour(token("line1")));
  painter.setBrush(toColour(token("glass")));
  painter.drawRoundedRect(onPixels(rect()), 5, 5);
  drawDigits(painter, {kPadding, (height() - digitHeight_) / 2}, digitHeight_, text_, token("tealHi"));
}

}  // namespace kvo
