#include "ui/painting.h"

namespace kvo {

void drawShadow(QPainter& painter, const QRectF& rect, double radius, const Shadow& shadow) {
  const Painting kept(painter);
  painter.setPen(Qt::NoPen);
  // From the outside inwards, each ring on those before it; what is covered then grows with the square of the
  // way, so that the edge is not seen.
  double covered = 0;
  for (int out = shadow.soft; out > -shadow.soft; --out) {
    const double way = (shadow.soft - out + 1.0) / (2.0 * shadow.soft);
    const double wanted = shadow.opacity * way * way * (3 - 2 * way);
    const double ring = (wanted - covered) / (1 - covered);
    covered = wanted;
    painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(ring)));
    const double corner = std::max(0.0, radius + out);
    painter.drawRoundedRect(rect.translated(0, shadow.down).adjusted(-out, -out, out, out), corner, corner);
  }
}

}  // namespace kvo
