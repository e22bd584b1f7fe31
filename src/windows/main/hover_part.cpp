#include "windows/main/hover_part.h"

#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/frame_pixmap.h"
#include "windows/main/plate.h"

#include <QPainter>
#include <algorithm>

namespace kvo {
namespace {

constexpr QSizeF kHoverPicture(128, 72);  // pixels at size 1
constexpr double kHoverRim = 3;
constexpr double kHoverTime = 17;  // height of the line below the picture
constexpr double kHoverText = 10.5;
constexpr double kHoverGap = 4;  // to what it stands over
constexpr double kTimeAlone = 56;

}  // namespace

HoverPart::HoverPart(const HoverState& state, QWidget* face) : QWidget(face), state_(state) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void HoverPart::layOut(const FaceScale& scale) { scale_ = scale; }

void HoverPart::drawOver(const QPoint& point) {
  if (take()) placeAt(point.x(), point.y() - scale_.at(kHoverGap) - height());
}

void HoverPart::drawBelow(const QPoint& point) {
  if (take()) placeAt(point.x(), point.y() + scale_.at(kHoverGap));
}

bool HoverPart::take() {
  setVisible(state_.visible);
  if (!state_.visible) return false;
  if (shown_ != state_.picture) {
    shown_ = state_.picture;
    picture_ = shown_ == nullptr ? QPixmap() : framePixmap(*shown_, 1);
    update();
  }
  if (time_ != state_.time) {
    time_ = state_.time;
    update();
  }
  const bool alone = picture_.isNull();
  resize(scale_.at((alone ? kTimeAlone : kHoverPicture.width()) + 2 * kHoverRim),
         scale_.at((alone ? 0 : kHoverPicture.height() + kHoverRim) + kHoverTime));
  return true;
}

// Wholly on the face.
void HoverPart::placeAt(int middle, int top) {
  move(std::clamp(middle - width() / 2, 0, std::max(parentWidget()->width() - width(), 0)), top);
  raise();
}

void HoverPart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const auto box = onPixels(rect());
  const double radius = 5 * scale_.size();
  painter.setPen(QPen(toColour(token("line2")), scale_.hairline()));
  painter.setBrush(toColour(token("tip")));
  painter.drawRoundedRect(box, radius, radius);
  const int rim = scale_.at(kHoverRim);
  if (!picture_.isNull()) {
    const QRect box(rim, rim, width() - 2 * rim, scale_.at(kHoverPicture.height()));
    QRect place({}, picture_.size().scaled(box.size(), Qt::KeepAspectRatio));
    place.moveCenter(box.center());
    painter.fillRect(box, toColour(token("void")));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, picture_);
  }
  const int line = scale_.at(kHoverTime);
  painter.setFont(scale_.number(kHoverText, QFont::Medium));
  painter.setPen(toColour(token("text1")));
  painter.drawText(QRect(0, height() - line, width(), line), Qt::AlignCenter, shown(time_));
}

}  // namespace kvo
