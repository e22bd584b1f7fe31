#include "windows/main/face_scale.h"

#include "ui/theme.h"

namespace kvo {
namespace {

constexpr double kPointsPerInch = 72;

}  // namespace

QRect FaceScale::place(const QRectF& units) const {
  const QPoint from(at(units.left()), at(units.top()));
  return {from, QPoint(at(units.right()) - 1, at(units.bottom()) - 1)};
}

QSize FaceScale::window(double width, double height) const {
  return {static_cast<int>(width * size_), static_cast<int>(height * size_)};
}

// Fonts take whole pixels or any points.
double FaceScale::points(double pixels) const { return pixels * size_ * kPointsPerInch / dotsPerInch_; }

QFont FaceScale::text(double pixels, QFont::Weight weight) const {
  QFont font;
  font.setFamilies({"Inter", "Noto Sans", "DejaVu Sans"});
  font.setPointSizeF(points(pixels));
  font.setWeight(weight);
  return font;
}

QFont FaceScale::number(double pixels, QFont::Weight weight) const {
  auto font = numberFont(pixels);
  font.setPointSizeF(points(pixels));
  font.setWeight(weight);
  return font;
}

}  // namespace kvo
