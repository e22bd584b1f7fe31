#include "ui/kvo_but.h"

#include "ui/painting.h"
#include "ui/pictures.h"
#include "ui/theme.h"

#include <QEvent>
#include <QLinearGradient>

namespace kvo {
namespace {

constexpr int kKeyHeight = 28;
constexpr int kKeyWidth = 36;
constexpr int kKeyPadding = 14;
constexpr int kIconGap = 6;
constexpr int kIcon = 16;
constexpr double kRadius = 6;
constexpr double kDisabledOpacity = 0.4;

}  // namespace

KVOBut::KVOBut(QWidget* parent) : HoverKey(parent) { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void KVOBut::setPictures(const QString& rest, const QString& hover, const QString& pressed,
                         double interfaceSize) {
  const double scale = interfaceSize * devicePixelRatio();
  const auto read = [&](const QString& path) {
    const auto file = pictureFile(path.toStdString(), scale);
    QPixmap picture(QString::fromStdString(file.path));
    if (!picture.isNull()) picture.setDevicePixelRatio(file.size / interfaceSize);
    return picture;
  };
  setPictures(read(rest), read(hover), read(pressed));
}

void KVOBut::setPictures(const QPixmap& rest, const QPixmap& hover, const QPixmap& pressed) {
  pictures_ = {rest, hover.isNull() ? rest : hover, pressed.isNull() ? rest : pressed};
  updateGeometry();
  update();
}

void KVOBut::setIconName(const QString& name) {
  iconName_ = name;
  updateGeometry();
  update();
}

QSize KVOBut::sizeHint() const {
  if (hasPictures()) return pictures_[Rest].deviceIndependentSize().toSize();
  if (text().isEmpty()) return {themed(kKeyWidth), themed(kKeyHeight)};
  const int icon = iconName_.isEmpty() ? 0 : themed(kIcon + kIconGap);
  return {fontMetrics().size(Qt::TextShowMnemonic, text()).width() + icon + 2 * themed(kKeyPadding),
          themed(kKeyHeight)};
}

// A screen reader is told the tool tip, or else the text, and whether the key is lit.
void KVOBut::describe() {
  if (!toolTip().isEmpty()) setAccessibleName(toolTip());
  const auto name = toolTip().isEmpty() ? text() : toolTip();
  setAccessibleDescription(isCheckable() ? name + (isChecked() ? ", lit" : ", unlit") : QString());
}

void KVOBut::checkStateSet() { describe(); }

void KVOBut::nextCheckState() {
  HoverKey::nextCheckState();
  describe();
}

bool KVOBut::event(QEvent* event) {
  if (event->type() == QEvent::ToolTipChange) describe();
  return HoverKey::event(event);
}

void KVOBut::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!hasPictures()) return drawKey(painter);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!isEnabled()) painter.setOpacity(kDisabledOpacity);
  const auto& picture = pictures_[isDown() ? Pressed : isEnabled() && underMouse() ? Hover : Rest];
  // In the middle of what takes the mouse.
  const auto size = pictures_[Rest].deviceIndependentSize().toSize();
  painter.drawPixmap(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size),
                     picture);
}

void KVOBut::drawKey(QPainter& painter) const {
  const Painting kept(painter);
  const bool lit = isChecked();
  QLinearGradient body(0, 0, 0, height());
  body.setColorAt(0, toColour(token("keyTop")));
  body.setColorAt(1, toColour(token("ink3")));
  QBrush ground(body);
  if (isDown()) {
    ground = toColour(token("keyDown"));
  } else if (!isEnabled()) {
    ground = toColour(token("ink2"));
  } else if (lit) {
    ground = toColour(token("tealBg"));
  } else if (underMouse()) {
    ground = toColour(token("keyHover"));
  }
  painter.setBrush(ground);
  painter.setPen(toColour(!isEnabled() ? token("line1") : lit ? token("teal") : token("line2")));
  painter.drawRoundedRect(onPixels(rect()), kRadius, kRadius);
  if (isEnabled() && !isDown()) {  // the edge that catches the light
    auto light = toColour(token("focus"));
    light.setAlphaF(0.1F);
    painter.setPen(light);
    painter.drawLine(QPointF(kRadius, 1.5), QPointF(width() - kRadius, 1.5));
  }

  const auto ink = !isEnabled() ? token("textOff") : lit ? token("tealHi") : token("text1");
  const int textWidth = text().isEmpty() ? 0 : fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  const int side = themed(kIcon);
  const int iconWidth = iconName_.isEmpty() ? 0 : side + (textWidth > 0 ? themed(kIconGap) : 0);
  QPoint at((width() - textWidth - iconWidth) / 2, (height() - side) / 2);
  if (isDown()) at.ry() += 1;
  if (!iconName_.isEmpty()) painter.drawPixmap(at, iconPicture(iconName_, ink, side, devicePixelRatio()));
  painter.setPen(toColour(ink));
  painter.drawText(QRect(at.x() + iconWidth, at.y(), width() - at.x() - iconWidth, side),
                   Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, text());
}

}  // namespace kvo
