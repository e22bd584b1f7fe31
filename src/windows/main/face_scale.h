// The interface size: what the tables place in pixels at size 1 stands on the screen at round(place x size).
#pragma once

#include <QFont>
#include <QRect>
#include <QRectF>
#include <QSize>

namespace kvo {

class FaceScale {
 public:
  /// `size` is 1, 1.25, 1.5 or 2; `dotsPerInch` those that the screen's fonts go by.
  explicit FaceScale(double size = 1, double dotsPerInch = 96) : size_(size), dotsPerInch_(dotsPerInch) {}

  [[nodiscard]] double size() const { return size_; }

  /// Pixels of a length or place.
  [[nodiscard]] int at(double units) const { return qRound(units * size_); }
  /// Both edges at their places, so that what touches at size 1 touches at each.
  [[nodiscard]] QRect place(const QRectF& units) const;
  /// The whole pixels within a size, as windows take it.
  [[nodiscard]] QSize window(double width, double height) const;
  /// A hairline: 1 pixel, 2 from size 2 on.
  [[nodiscard]] int hairline() const { return size_ < 2 ? 1 : 2; }

  /// The face of texts, and of numbers that move; `pixels` at size 1, fractions too.
  [[nodiscard]] QFont text(double pixels, QFont::Weight weight = QFont::Normal) const;
  [[nodiscard]] QFont number(double pixels, QFont::Weight weight = QFont::Normal) const;

  bool operator==(const FaceScale&) const = default;

 private:
  [[nodiscard]] double points(double pixels) const;

  double size_;
  double dotsPerInch_;
};

}  // namespace kvo
