#include "windows/position/floating.h"

#include "ui/compositing.h"
#include "ui/dib_section_region.h"
#include "ui/owner_place.h"
#include "ui/painting.h"
#include "ui/theme.h"
#include "windows/place/window_place.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>

namespace kvo {

Floating::Floating(const QSize& size, const QSize& corner, Qt::WindowFlags flags)
    : QWidget(nullptr, flags | Qt::FramelessWindowHint), size_(size), corner_(corner) {
  setAttribute(Qt::WA_TranslucentBackground);
  setFixedSize(size_);
}

QRect Floating::at(double x, double y, double width, double height) const {
  return QRectF(x * scale_, y * scale_, width * scale_, height * scale_).toRect();
}

void Floating::setScale(double size) {
  if (size == scale_) return;
  scale_ = size;
  setFixedSize(size_ * scale_);
  setStyleSheet(scale_ == 1 ? QString() : QString("* { font-size: %1px; }").arg(qRound(12 * scale_)));
  layOut();
}

void Floating::showOver(QWidget* owner, const QPointF& part, const WindowPlace* kept) {
  if (owner != nullptr) {
    const auto place = overOwner(owner->geometry(), owner->screen()->availableGeometry(), size(), part);
    kept != nullptr && kept->isKept() ? kept->restore(*this) : move(place);
    winId();  // so that there is a window to belong to another
    windowHandle()->setTransientParent(owner->windowHandle());
  }
  show();
  raise();
}

void Floating::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (hasCompositor()) return;
  const auto shape = roundRectRegion(width(), height(), qRound(corner_.width() * scale_),
                                     qRound(corner_.height() * scale_));  // cuts the corners
  ShapedWidget(*this).setShape(&shape);
}

void Floating::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  QLinearGradient ground(0, 0, 0, height());
  ground.setColorAt(0, toColour(token("ink4")));
  ground.setColorAt(0.3, toColour(token("ink2")));
  ground.setColorAt(1, toColour(token("ink1")));
  painter.setBrush(ground);
  painter.setPen(QPen(toColour(token("line3")), 1));
  painter.drawRoundedRect(onPixels(rect()), corner_.width() * scale_ / 2, corner_.height() * scale_ / 2);
}

}  // namespace kvo
