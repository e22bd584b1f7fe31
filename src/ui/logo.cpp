#include "ui/logo.h"

#include "ui/painting.h"

#include <QFont>
#include <cmath>

namespace kvo {
namespace {

// At size 1.
constexpr double kBand = 2;
constexpr double kCaptionTop = 40;
constexpr double kBaseline = 7.4;  // from the left
constexpr double kTextSize = 11;
constexpr double kSpacing = 1.1;
constexpr double kDarkPart = 0.6;  // of the height, from the top

QFont captionFont(double interfaceSize) {
  QFont font;
  font.setFamilies({"Inter Display", "Inter", "Noto Sans", "DejaVu Sans"});
  font.setPixelSize(qRound(kTextSize * interfaceSize));
  font.setWeight(QFont::DemiBold);
  font.setLetterSpacing(QFont::AbsoluteSpacing, kSpacing * interfaceSize);
  return font;
}

QColor between(const QColor& a, const QColor& b, double part) {
  const auto mix = [part](int from, int to) { return qRound(from + (to - from) * part); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

}  // namespace

double cLogo::captionRoom() const { return box.height() * kDarkPart - kCaptionTop * interfaceSize; }

void cLogo::Draw() const {
  auto& painter = *DrawingObject;
  const Painting kept(painter);
  painter.setClipRect(box, Qt::IntersectClip);
  const int bands = std::max(1, static_cast<int>(std::lround(box.height() / (kBand * interfaceSize))));
  for (int i = 0; i < bands; ++i) {
    const int top = box.height() * i / bands, foot = box.height() * (i + 1) / bands;
    painter.fillRect(box.x(), box.y() + top, box.width(), foot - top,
                     between(StartColor, EndColor, bands > 1 ? i / (bands - 1.0) : 0));
  }
  // Rounded like a spine: dark at both sides.
  QLinearGradient relief(box.topLeft(), box.topRight());
  relief.setColorAt(0, QColor(0, 0, 0, 77));
  relief.setColorAt(0.35, QColor(255, 255, 255, 26));
  relief.setColorAt(1, QColor(0, 0, 0, 71));
  painter.fillRect(box, relief);

  painter.setFont(captionFont(interfaceSize));
  painter.setPen(Qt::white);
  painter.translate(box.x() + kBaseline * interfaceSize, box.y() + kCaptionTop * interfaceSize);
  painter.rotate(90);
  painter.setClipRect(QRectF(0, -box.width(), captionRoom(), 2.0 * box.width()), Qt::IntersectClip);
  painter.drawText(QPointF(), Caption);
}

}  // namespace kvo
