#include "windows/editor/timeline_ink.h"

#include "ui/theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPixmapCache>

namespace kvo::ink {
namespace {
constexpr double kLeastText = 14;  // pixels: narrower boxes say nothing
}  // namespace

QColor colour(Rgb rgb, double opacity) {
  auto out = toColour(rgb);
  out.setAlphaF(static_cast<float>(opacity));
  return out;
}

QColor mixed(Rgb over, Rgb under, double part) {
  const auto channel = [&](int shift) {
    const double a = (over >> shift) & 0xFFU;
    const double b = (under >> shift) & 0xFFU;
    return qRound(a * part + b * (1 - part));
  };
  return {channel(16), channel(8), channel(0)};
}

QFont text(int pixels, int weight) {
  QFont font;
  font.setFamilies({"Inter", "Noto Sans", "DejaVu Sans"});
  font.setPixelSize(pixels);
  font.setWeight(static_cast<QFont::Weight>(weight));
  return font;
}

void line(QPainter& painter, const QRectF& box, const QString& text, Qt::Alignment side) {
  if (box.width() < kLeastText) return;
  const auto shown = QFontMetricsF(painter.font()).elidedText(text, Qt::ElideRight, box.width());
  painter.drawText(box, static_cast<int>(side.toInt()) | Qt::TextSingleLine, shown);
}

void icon(QPainter& painter, const QString& name, Rgb rgb, const QPointF& middle, int side) {
  const double ratio = painter.device()->devicePixelRatioF() * painter.transform().m11();
  const auto key = QString("timeline %1 %2 %3 %4").arg(name).arg(rgb).arg(side).arg(ratio);
  QPixmap picture;
  if (!QPixmapCache::find(key, &picture)) {
    picture = iconPicture(name, rgb, side, ratio);
    QPixmapCache::insert(key, picture);
  }
  const double half = side / 2.0;
  painter.drawPixmap(QRectF(middle.x() - half, middle.y() - half, side, side), picture,
                     QRectF(QPointF(), QSizeF(picture.size())));
}

}  // namespace kvo::ink
