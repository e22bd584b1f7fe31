#include "windows/editor/sample_motion.h"

#include "ui/painting.h"
#include "ui/pictures.h"
#include "ui/theme.h"

#include <QImage>
#include <QPainterPath>
#include <QTimerEvent>

namespace kvo {
namespace {

constexpr int kStepTime = 120;                  // milliseconds
constexpr int kRounds = 5;                      // until they come to rest under a pointer that rests
constexpr int kSampleRadius = 3;                // pixels at size 1
constexpr std::size_t kMostScaled = 74UL * 12;  // 9 KB each

}  // namespace

void SampleMotion::stir() {
  left_ = kRounds * kSampleSteps;
  if (moving_.isActive()) return;
  step_ = kSampleStill;
  isCalm_ = samples_.areCalm();
  moving_.start(kStepTime, this);
}

void SampleMotion::rest() {
  if (!moving_.isActive()) return;
  moving_.stop();
  moved_();
}

void SampleMotion::timerEvent(QTimerEvent* event) {
  if (event->timerId() == moving_.timerId()) tick();
}

void SampleMotion::tick() {
  if (--left_ <= 0) return rest();
  step_ = (step_ + 1) % kSampleSteps;
  moved_();
}

void SamplePixmaps::paint(QPainter& painter, const QRectF& place, const std::string& name, int step,
                          bool enabled) {
  const auto& pixmap = of(name, step, place.size().toSize(), painter.device()->devicePixelRatioF());
  QRectF shape(place);
  if (!pixmap.isNull()) {
    shape.setSize(pixmap.deviceIndependentSize());
    shape.moveCenter(place.center());
    shape.moveTopLeft(shape.topLeft().toPoint());  // sharp: not between two pixels
  }
  QPainterPath round;
  round.addRoundedRect(shape, themed(kSampleRadius), themed(kSampleRadius));
  const Painting kept(painter);
  painter.setClipPath(round);
  painter.fillRect(shape, toColour(token("ink3")));
  painter.setOpacity(enabled ? 1 : 0.4);
  if (!pixmap.isNull()) painter.drawPixmap(shape.topLeft(), pixmap);
}

const QPixmap& SamplePixmaps::of(const std::string& name, int step, const QSize& size, double pixelRatio) {
  const auto wanted = size * pixelRatio;
  if (wanted != size_ || pixelRatio != ratio_ || scaled_.size() > kMostScaled) scaled_.clear();
  size_ = wanted;
  ratio_ = pixelRatio;
  auto picture = samples_.picture(name, step);
  if (picture == nullptr && step != kSampleStill) {
    step = kSampleStill;
    picture = samples_.picture(name, step);
  }
  auto& scaled = scaled_[{name, step}];
  if (scaled.picture == picture) return scaled.pixmap;
  scaled = {picture, {}};
  if (picture != nullptr) {
    scaled.pixmap = QPixmap::fromImage(imageOver(*picture)
                                           .scaled(size_, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                                           .convertToFormat(QImage::Format_RGB32));
    scaled.pixmap.setDevicePixelRatio(pixelRatio);
  }
  return scaled.pixmap;
}

}  // namespace kvo
