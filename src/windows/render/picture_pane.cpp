#include "windows/render/picture_pane.h"

#include "ui/painting.h"
#include "ui/pictures.h"
#include "ui/theme.h"

#include <QPainterPath>

namespace kvo {
namespace {

constexpr double kPaneRadius = 6;

}  // namespace

PicturePane::PicturePane(const QString& name, QWidget* parent) : QWidget(parent) { setAccessibleName(name); }

void PicturePane::draw(const QImage& image) {
  if (image.cacheKey() == image_.cacheKey()) return;
  image_ = image;
  picture_ = nullptr;
  update();
}

void PicturePane::draw(const std::shared_ptr<const FramePicture>& picture) {
  if (picture == picture_) return;
  picture_ = picture;
  image_ = picture == nullptr ? QImage() : imageOver(*picture);
  update();
}

void PicturePane::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const double radius = themed(kPaneRadius);
  QPainterPath pane;
  pane.addRoundedRect(onPixels(rect()), radius, radius);
  painter.fillPath(pane, Qt::black);
  if (!image_.isNull()) {
    QRectF place({0, 0}, QSizeF(image_.size()).scaled(QSizeF(size()), Qt::KeepAspectRatio));
    place.moveCenter(QRectF(rect()).center());
    painter.save();
    painter.setClipPath(pane);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, image_);
    painter.restore();
  }
  painter.setPen(QPen(toColour(token("line1")), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(pane);
}

}  // namespace kvo
