#include "windows/main/plate.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

namespace kvo {
namespace {

constexpr int kPlateRim = 2;  // pixels about a plate that its rim may take

QColor seeThrough(QColor colour, double part) {
  colour.setAlphaF(static_cast<float>(part));
  return colour;
}

}  // namespace

QRect placedIn(const QWidget& parent, const FaceScale& scale, const QRectF& units) {
  QPoint from;
  for (const auto* widget = &parent; !widget->isWindow(); widget = widget->parentWidget()) {
    from += widget->pos();
  }
  return scale.place(units).translated(-from);
}

QColor plateColour() { return seeThrough(toColour(token("plate")), 0.9); }

void drawPlate(QPainter& painter, const QRectF& rect, double radius, const FaceScale& scale,
               const QColor& ground) {
  const Painting kept(painter);
  const double line = scale.hairline();
  const double half = line / 2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(rect, radius, radius);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(seeThrough(Qt::black, 0.6), line));
  painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
  const auto outer = rect.adjusted(-half, -half, half, half);
  QLinearGradient light(outer.topLeft(), outer.bottomLeft());
  light.setColorAt(0, seeThrough(Qt::black, 0.5));
  light.setColorAt(0.6, seeThrough(Qt::white, 0.04));
  light.setColorAt(1, seeThrough(Qt::white, 0.22));
  painter.setPen(QPen(light, line));
  painter.drawRoundedRect(outer, radius + half, radius + half);
}

Plate::Plate(const QRectF& units, double radius, QWidget* parent)
    : QWidget(parent), units_(units), radius_(radius), ground_(plateColour()) {}

void Plate::layOut(const FaceScale& scale) {
  scale_ = scale;
  setGeometry(
      placedIn(*parentWidget(), scale, units_).adjusted(-kPlateRim, -kPlateRim, kPlateRim, kPlateRim));
  update();
}

void Plate::setGround(const QColor& ground) {
  ground_ = ground;
  update();
}

void Plate::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  drawPlate(painter, rect().adjusted(kPlateRim, kPlateRim, -kPlateRim, -kPlateRim), radius_ * scale_.size(),
            scale_, ground_);
}

FaceLabel::FaceLabel(const QRectF& units, const LabelLook& look, QWidget* parent)
    : QLabel(parent), units_(units), look_(look) {
  setTextFormat(Qt::PlainText);
}

void FaceLabel::layOut(const FaceScale& scale) {
  face_ = look_.isNumber ? scale.number(look_.pixels, look_.weight) : scale.text(look_.pixels, look_.weight);
  setGeometry(placedIn(*parentWidget(), scale, units_));
  update();
}

void FaceLabel::setColour(Rgb colour) {
  if (colour == look_.colour) return;
  look_.colour = colour;
  update();
}

void FaceLabel::write(const QString& text) {
  if (text != this->text()) setText(text);
}

QString FaceLabel::cut() const { return QFontMetrics(face_, this).elidedText(text(), look_.elide, width()); }

bool FaceLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || !isCut()) return QLabel::event(event);
  const auto plain = Qt::mightBeRichText(text()) ? text().toHtmlEscaped() : text();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plain, this);
  return true;
}

void FaceLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setFont(face_);
  painter.setPen(toColour(isEnabled() ? look_.colour : token("textOff")));
  painter.drawText(rect(), static_cast<int>(Qt::AlignVCenter | look_.side) | Qt::TextSingleLine, cut());
}

}  // namespace kvo
