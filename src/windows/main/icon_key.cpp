#include "windows/main/icon_key.h"

#include "ui/painting.h"
#include "ui/theme.h"
#include "windows/main/plate.h"

#include <QPainter>

namespace kvo {

IconKey::IconKey(const QString& icon, const QString& name, const QRectF& units, double side, QWidget* parent)
    : HoverKey(parent), icon_(icon), units_(units), side_(side) {
  setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where it is
  setAccessibleName(name);
}

void IconKey::layOut(const FaceScale& scale) {
  scale_ = scale;
  setGeometry(placedIn(*parentWidget(), scale, units_));
  update();
}

void IconKey::setIconName(const QString& icon) {
  if (icon == icon_) return;
  icon_ = icon;
  update();
}

void IconKey::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  if (isEnabled() && (isDown() || underMouse())) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(toColour(isDown() ? token("keyDown") : token("ink4")));
    const double inset = 2 * scale_.size();
    painter.drawRoundedRect(QRectF(rect()).adjusted(0, inset, 0, -inset), 4 * scale_.size(),
                            4 * scale_.size());
  }
  const int side = scale_.at(side_);
  const auto ink = !isEnabled() ? token("textOff") : isDown() ? token("tealHi") : token("text1");
  painter.drawPixmap((width() - side) / 2, (height() - side) / 2 + (isDown() ? 1 : 0),
                     iconPicture(icon_, ink, side, devicePixelRatio()));
}

}  // namespace kvo
