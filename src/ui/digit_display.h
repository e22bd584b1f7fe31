// Lit digits of seven bars behind glass, the unlit bars faintly seen.
#pragma once

#include "ui/tokens.h"

#include <QWidget>
#include <cstdint>

class QPainter;

namespace kvo {

/// The bars of a character, a bit each: 0 top, 1 middle, 2 foot, 3 upper left, 4 upper right, 5 lower left,
/// 6 lower right. None for what seven bars cannot show.
std::uint8_t digitBars(char character);

/// Draws digits, minus signs, blanks, colons and points, `height` pixels high, from the left of `at` on, lit
/// in the colour `lit`. Gives the width that they take.
double drawDigits(QPainter& painter, const QPointF& at, double height, const QString& text, Rgb lit);
double widthOfDigits(double height, const QString& text);

class DigitDisplay : public QWidget {
 public:
  /// `digitHeight` in pixels: 16.5 in the main window, 36 in the positioner.
  explicit DigitDisplay(double digitHeight, QWidget* parent = nullptr);

  void setText(const QString& text);
  [[nodiscard]] const QString& text() const { return text_; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double digitHeight_;
  QString text_;
};

}  // namespace kvo
