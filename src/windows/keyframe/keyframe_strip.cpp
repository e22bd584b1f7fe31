#include "windows/keyframe/keyframe_strip.h"

#include "ui/focus_ring.h"
#include "ui/kvo_style.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainterPath>
#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr int kStripSide = 24;  // pixels to the first frame, and from the last
constexpr int kCurveTop = 12;   // of the full level
constexpr int kCurveFoot = 58;  // of none
constexpr int kRulerTop = 64;
constexpr int kRulerParts = 10;
constexpr int kDiamond = 6;  // from its middle to a corner
constexpr int kDiamondHit = 12;
constexpr double kLevelStep = 0.01;

void drawDiamond(QPainter& painter, const QPointF& middle, bool isChosen) {
  const double reach = themed(kDiamond);
  QPainterPath path;
  path.moveTo(middle + QPointF(0, -reach));
  path.lineTo(middle + QPointF(reach, 0));
  path.lineTo(middle + QPointF(0, reach));
  path.lineTo(middle + QPointF(-reach, 0));
  path.closeSubpath();
  painter.setPen(QPen(toColour(token("void")), themed(1)));
  painter.setBrush(toColour(isChosen ? token("focus") : token("amber")));
  painter.drawPath(path);
}

}  // namespace

KeyframeStrip::KeyframeStrip(const KeyframeWindow& state, QWidget* parent) : QWidget(parent), state_(state) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

void KeyframeStrip::draw(const QImage& picture) {
  Shown now{state_.Sld_FramePosMaster, state_.Lst_Keyframes.ListIndex, state_.points, picture.cacheKey()};
  if (now == drawn_) return;
  drawn_ = std::move(now);
  picture_ = picture;
  update();
}

QPointF KeyframeStrip::at(Long frame, double level) const {
  const auto& range = state_.Sld_FramePosMaster;
  const double span = std::max(1, range.Max - range.Min);
  const double side = themed(kStripSide);
  const double x = side + (frame - range.Min) / span * (width() - 2 * side);
  return {x, themed(kCurveFoot) - level * (themed(kCurveFoot) - themed(kCurveTop))};
}

Long KeyframeStrip::frameAt(double x) const {
  const auto& range = state_.Sld_FramePosMaster;
  const double side = themed(kStripSide);
  const double part = std::clamp((x - side) / std::max(1.0, width() - 2 * side), 0.0, 1.0);
  return range.Min + qRound(part * (range.Max - range.Min));
}

double KeyframeStrip::levelAt(double y) const {
  return std::clamp((themed(kCurveFoot) - y) / (themed(kCurveFoot) - themed(kCurveTop)), 0.0, 1.0);
}

std::optional<KeyframePoint> KeyframeStrip::pointAt(const QPointF& place) const {
  for (const auto& point : state_.points) {
    if ((at(point.frame, point.level) - place).manhattanLength() <= themed(kDiamondHit)) return point;
  }
  return std::nullopt;
}

const KeyframePoint* KeyframeStrip::chosenPoint() const {
  const auto found = std::find_if(state_.points.begin(), state_.points.end(), [&](const auto& point) {
    return point.line == state_.Lst_Keyframes.ListIndex;
  });
  return found == state_.points.end() ? nullptr : &*found;
}

void KeyframeStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (const auto point = pointAt(event->position())) {
    dragging_ = point->line;
    chosen(point->line);
    return;
  }
  dragging_ = -1;
  wentTo(frameAt(event->position().x()));
}

void KeyframeStrip::mouseMoveEvent(QMouseEvent* event) {
  const auto place = event->position();
  if (!dragging_) {
    setCursor(pointAt(place) ? Qt::SizeAllCursor : Qt::ArrowCursor);
  } else if (*dragging_ < 0) {
    wentTo(frameAt(place.x()));
  } else {
    dragged(*dragging_, frameAt(place.x()), levelAt(place.y()));
  }
}

void KeyframeStrip::mouseReleaseEvent(QMouseEvent* /*event*/) { dragging_.reset(); }

void KeyframeStrip::keyPressEvent(QKeyEvent* event) {
  const auto* point = chosenPoint();
  if (point == nullptr) return QWidget::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Left:
      return dragged(point->line, point->frame - 1, point->level);
    case Qt::Key_Right:
      return dragged(point->line, point->frame + 1, point->level);
    case Qt::Key_Up:
      return dragged(point->line, point->frame, point->level + kLevelStep);
    case Qt::Key_Down:
      return dragged(point->line, point->frame, point->level - kLevelStep);
    default:
      QWidget::keyPressEvent(event);
  }
}

void KeyframeStrip::drawGround(QPainter& painter) const {
  QPainterPath shape;
  shape.addRoundedRect(onPixels(rect()), themed(8), themed(8));
  painter.fillPath(shape, toColour(token("ink0")));
  if (!picture_.isNull()) {
    painter.save();
    painter.setClipPath(shape);
    painter.setOpacity(0.45);
    const double high = themed(kRulerTop);
    const double wide = high * picture_.width() / std::max(1, picture_.height());
    const double step = std::max(1.0, wide);
    const int count = static_cast<int>(std::ceil(width() / step));
    for (int i = 0; i < count; ++i) painter.drawImage(QRectF(i * step, 0, wide, high), picture_);
    painter.restore();
  }
  painter.setPen(toColour(token("line2")));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(shape);
}

void KeyframeStrip::drawRuler(QPainter& painter) const {
  painter.setFont(numberFont(themed(19) / 2.0));
  const auto& range = state_.Sld_FramePosMaster;
  for (int i = 0; i <= kRulerParts; ++i) {
    const Long frame = range.Min + qRound(i * static_cast<double>(range.Max - range.Min) / kRulerParts);
    const double x = at(frame, 0).x();
    const bool isNamed = i % 2 == 0;
    painter.setPen(toColour(token("line3")));
    painter.drawLine(QPointF(x, themed(kRulerTop)), QPointF(x, themed(kRulerTop + (isNamed ? 10 : 5))));
    if (!isNamed) continue;
    painter.setPen(toColour(token("text3")));
    const QRectF place(x + themed(4), themed(kRulerTop + 3), themed(48), themed(14));
    if (i < kRulerParts) {
      painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, QString::number(frame));
    } else {
      painter.drawText(place.translated(-themed(32), themed(9)), Qt::AlignRight | Qt::AlignVCenter,
                       QString::number(frame));
    }
  }
}

void KeyframeStrip::drawCurve(QPainter& painter) const {
  if (!state_.points.empty()) {
    QPainterPath curve(at(state_.points.front().frame, state_.points.front().level));
    for (const auto& point : state_.points) curve.lineTo(at(point.frame, point.level));
    curve.lineTo(at(state_.Sld_FramePosMaster.Max, state_.points.back().level));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(toColour(token("amber")), themed(2)));
    painter.drawPath(curve);
  }
  const double x = at(state_.Sld_FramePosMaster.Value, 0).x();
  painter.setPen(QPen(toColour(token("focus")), themed(3) / 2.0));
  painter.drawLine(QPointF(x, 1), QPointF(x, height() - 1));
  for (const auto& point : state_.points)
    drawDiamond(painter, at(point.frame, point.level), point.line == state_.Lst_Keyframes.ListIndex);
}

void KeyframeStrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  drawGround(painter);
  drawRuler(painter);
  drawCurve(painter);
}

}  // namespace kvo
