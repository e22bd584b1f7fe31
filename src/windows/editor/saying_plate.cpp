#include "windows/editor/saying_plate.h"

#include "ui/painting.h"
#include "windows/editor/timeline_ink.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace kvo {
namespace {

constexpr double kPlateLine = 24;
constexpr double kPlateAbove = 34;   // from the place to the plate's middle
constexpr double kPlateText = 10;    // to a text
constexpr double kPlateReason = 28;  // to a text with a sign ahead of it

QFont plateFont() { return ink::text(12, QFont::DemiBold); }

}  // namespace

SayingPlate::SayingPlate(const QPointF& at, const QSizeF& within, const QString& text,
                         const QString& reason) {
  const QFontMetricsF metrics(plateFont());
  double width = 0;
  const auto add = [&](const QString& line, Rgb rgb, double left) {
    if (line.isEmpty()) return;
    lines_.emplace_back(line, rgb);
    width = std::max(width, metrics.horizontalAdvance(line) + left + kPlateText);
  };
  add(text, token("text1"), kPlateText);
  add(reason, token("amber"), kPlateReason);
  const double height = static_cast<double>(lines_.size()) * kPlateLine;
  const double x = std::clamp(at.x() - width / 2, 4.0, std::max(4.0, within.width() - width - 4));
  const double above = at.y() - kPlateAbove - height / 2;
  const double y = above < 2 ? at.y() + kPlateAbove - height / 2 : above;  // where there is no room, below
  box_ = {x, y, width, height};
}

void SayingPlate::draw(QPainter& painter) const {
  if (lines_.empty()) return;
  painter.setPen(ink::colour(lines_.back().second == token("amber") ? token("amber") : token("teal")));
  painter.setBrush(ink::colour(token("glass")));
  painter.drawRoundedRect(onPixels(box_), 6, 6);
  painter.setFont(plateFont());
  double top = box_.y();
  for (const auto& [text, rgb] : lines_) {
    const bool isReason = rgb == token("amber");
    if (isReason) ink::icon(painter, "warn", rgb, {box_.x() + 18, top + kPlateLine / 2}, 14);
    painter.setPen(ink::colour(rgb));
    painter.drawText(QRectF(box_.x() + (isReason ? kPlateReason : kPlateText), top, box_.width(), kPlateLine),
                     Qt::AlignVCenter, text);
    top += kPlateLine;
  }
}

}  // namespace kvo
