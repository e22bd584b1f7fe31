#include "windows/render/render_pie.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QPainterPath>
#include <cmath>

namespace kvo {
namespace {

// Pixels at size 1.
constexpr double kPieRing = 100;
constexpr double kPieHole = 69;
constexpr double kPieMarks = 112;
constexpr int kPieMarkCount = 60;
constexpr int kPieMarkLength = 4;
constexpr int kPieShareText = 28;
constexpr int kPieBelowText = 11;
constexpr double kPieTick = 34;

QColor colourOf(const RenderPie& pie) {
  return toColour(pie.colour == kPieGreen    ? token("green")
                  : pie.colour == kPieYellow ? token("amber")
                  : pie.colour == kPieRed    ? token("red")
                                             : token("teal"));
}

QRectF about(const QPointF& middle, double radius) {
  return {middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius};
}

}  // namespace

RenderPieBar::RenderPieBar(QWidget* parent) : QWidget(parent) {}

void RenderPieBar::draw(const RenderPie& pie, const QString& below, bool isDone) {
  if (pie == pie_ && below == below_ && isDone == isDone_) return;
  pie_ = pie;
  below_ = below;
  isDone_ = isDone;
  setAccessibleDescription(QString("%1% %2").arg(std::lround(pie.percent)).arg(below));
  update();
}

void RenderPieBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const double unit = themed(100) / 100.0;
  const QPointF middle = QRectF(rect()).center();
  painter.setPen(QPen(toColour(token("line2")), 1));
  painter.setBrush(toColour(token("ink0")));
  painter.drawEllipse(about(middle, (kPieMarks + 2) * unit));
  for (int i = 0; i < kPieMarkCount; ++i) {
    const double angle = 2 * M_PI * i / kPieMarkCount;
    const QPointF way(std::sin(angle), -std::cos(angle));
    painter.setPen(QPen(toColour(i % 5 == 0 ? token("text2") : token("line3")), 1));
    painter.drawLine(middle + way * (kPieMarks - kPieMarkLength) * unit, middle + way * kPieMarks * unit);
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(token("ink1")));
  painter.drawEllipse(about(middle, kPieRing * unit));
  constexpr double kWholeTurn = 360;
  const double share = isDone_ ? 1 : std::clamp(pie_.percent / 100, 0.0, 1.0);
  QPainterPath piece(middle);
  piece.arcTo(about(middle, kPieRing * unit), 90, -kWholeTurn * share);
  piece.closeSubpath();
  painter.fillPath(piece, isDone_ ? toColour(token("green")) : colourOf(pie_));
  const auto hole = about(middle, kPieHole * unit);
  painter.setPen(QPen(toColour(token("line1")), 1));
  painter.setBrush(toColour(token("ink0")));
  painter.drawEllipse(hole);
  paintShare(painter, hole);
}

void RenderPieBar::paintShare(QPainter& painter, const QRectF& hole) const {
  if (isDone_) {
    const double u = themed(100) / 100.0;
    const auto at = hole.center();
    painter.setPen(QPen(toColour(token("green")), themed(4), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{
        {at + QPointF(-kPieTick, 2) * u, at + QPointF(-8, 26) * u, at + QPointF(kPieTick, -22) * u}});
    return;
  }
  painter.setFont(themedFont(*this, kPieShareText, QFont::DemiBold));
  painter.setPen(toColour(token("text1")));
  const double line = themed(kPieShareText);
  painter.drawText(hole.translated(0, -line / 4), Qt::AlignCenter,
                   QString("%1%").arg(std::lround(pie_.percent)));
  painter.setFont(themedFont(*this, kPieBelowText, QFont::Normal));
  painter.setPen(toColour(token("text2")));
  painter.drawText(hole.translated(0, line * 3 / 4), Qt::AlignCenter, below_);
}

}  // namespace kvo
