#include "windows/main/volume_part.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace kvo {
namespace {

constexpr double kKnobSide = 40;
constexpr double kArcRadius = 17;
constexpr double kPointerFrom = 4.6;
constexpr double kPointerTo = 9.4;
constexpr double kArcFrom = 135;  // degrees from three o'clock on, clockwise
constexpr double kArcSweep = 270;
constexpr double kNearEnd = 20;  // degrees of the gap that belong to an end
constexpr int kVolumeStep = 5;   // per cent
constexpr double kPerPixel = 1;  // per cent that a drag turns by
constexpr int kWheelStep = 120;  // of a wheel with notches
constexpr int kPerDegree = 16;   // as painters count
constexpr int kFullVolume = 100;

}  // namespace

VolumePart::VolumePart(const DisplayState& state, std::function<void(int)> set, QWidget* parent)
    : QAbstractSlider(parent), state_(state), set_(std::move(set)) {
  setRange(0, kFullVolume);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Volume"));
  setProperty("ringRound", true);
}

void VolumePart::layOut(const FaceScale& scale, const QPoint& corner) {
  scale_ = scale;
  setGeometry(corner.x(), corner.y(), scale.at(kKnobSide), scale.at(kKnobSide));
  update();
}

void VolumePart::draw() {
  setEnabled(state_.sound);
  if (value() != state_.volume) {
    setValue(state_.volume);
    update();
  }
  const auto tip = state_.sound ? tr("Volume %1%").arg(state_.volume) : tr("Volume");
  if (tip != toolTip()) setToolTip(tip);
}

void VolumePart::turnTo(int percent) {
  set_(std::clamp(percent, 0, kFullVolume));
  draw();
}

// What the arc says there, or its end near by; nothing in the gap at the foot, and in the knob's middle.
std::optional<int> VolumePart::percentAt(const QPointF& pointer) const {
  const auto way = pointer - QRectF(rect()).center();
  if (std::hypot(way.x(), way.y()) < kPointerTo * scale_.size()) return std::nullopt;
  double degrees = std::atan2(way.y(), way.x()) * 180 / std::numbers::pi - kArcFrom;
  if (degrees < 0) degrees += 360;
  if (degrees > 360 - kNearEnd) degrees = 0;
  if (degrees > kArcSweep && degrees < kArcSweep + kNearEnd) degrees = kArcSweep;
  if (degrees > kArcSweep) return std::nullopt;
  return static_cast<int>(std::lround(degrees / kArcSweep * kFullVolume));
}

void VolumePart::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return turnTo(state_.volume + kVolumeStep);
    case Qt::Key_Down:
      return turnTo(state_.volume - kVolumeStep);
    case Qt::Key_Home:
      return turnTo(0);
    case Qt::Key_End:
      return turnTo(kFullVolume);
    default:
      event->ignore();
  }
}

void VolumePart::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setSliderDown(true);
  if (const auto percent = percentAt(event->position())) turnTo(*percent);
  pressedAt_ = event->position();
  pressedVolume_ = state_.volume;
}

// Up and right is louder, whatever way the pointer takes about the knob.
void VolumePart::mouseMoveEvent(QMouseEvent* event) {
  if (!isSliderDown()) return;
  const auto way = (event->position() - pressedAt_) / scale_.size();
  turnTo(pressedVolume_ + static_cast<int>(std::lround((way.x() - way.y()) * kPerPixel)));
}

void VolumePart::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) setSliderDown(false);
}

void VolumePart::wheelEvent(QWheelEvent* event) {
  turnTo(state_.volume + kVolumeStep * event->angleDelta().y() / kWheelStep);
}

void VolumePart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  painter.scale(scale_.size(), scale_.size());
  const QPointF centre(kKnobSide / 2, kKnobSide / 2);
  const QRectF arc(centre - QPointF(kArcRadius, kArcRadius), QSizeF(2 * kArcRadius, 2 * kArcRadius));
  const auto sweep = [&](double degrees, Rgb colour, double width) {
    painter.setPen(QPen(toColour(colour), width, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(arc, qRound(-kArcFrom * kPerDegree), qRound(-degrees * kPerDegree));
  };
  sweep(kArcSweep, token("glass"), 2.6);
  const double turned = kArcSweep * value() / kFullVolume;
  if (isEnabled() && value() > 0) sweep(turned, token("teal"), 2.2);
  const double angle = (kArcFrom + (isEnabled() ? turned : 0)) * std::numbers::pi / 180;
  const QPointF way(std::cos(angle), std::sin(angle));
  painter.setPen(
      QPen(toColour(isEnabled() ? token("focus") : token("textOff")), 2, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(centre + kPointerFrom * way, centre + kPointerTo * way);
}

}  // namespace kvo
