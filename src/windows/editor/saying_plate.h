// What is said where the hand is: a plate over that place, with a line of what goes on and one, in amber, of
// why it does not. Places are pixels at size 1.
#pragma once

#include "ui/tokens.h"

#include <QRectF>
#include <QString>
#include <utility>
#include <vector>

class QPainter;

namespace kvo {

class SayingPlate {
 public:
  SayingPlate() = default;
  /// Over `at`, or below where `within` has no room; either text may be empty.
  SayingPlate(const QPointF& at, const QSizeF& within, const QString& text, const QString& reason);

  [[nodiscard]] const QRectF& box() const { return box_; }
  void draw(QPainter& painter) const;

 private:
  std::vector<std::pair<QString, Rgb>> lines_;
  QRectF box_;
};

}  // namespace kvo
