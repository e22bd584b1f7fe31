#include "windows/main/tool_key.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QPainter>

namespace kvo {
namespace {

constexpr QRectF kToolBar(0, 23.4, 12, 2);  // the bar of one that is lit, from the key's head

}  // namespace

ToolKey::ToolKey(const ToolbarPicture& picture, const QString& name, QWidget* parent)
    : HoverKey(parent), picture_(picture) {
  setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where it is
  setAccessibleName(name);
  setToolTip(name);
}

void ToolKey::layOut(const FaceScale& scale) {
  scale_ = scale;
  update();
}

void ToolKey::setGlyph(double left, double width) {
  glyphLeft_ = left;
  glyphWidth_ = width;
}

void ToolKey::setLit(bool lit) {
  if (lit == lit_) return;
  lit_ = lit;
  setAccessibleDescription(lit ? tr("%1, lit").arg(accessibleName()) : accessibleName());
  update();
}

void ToolKey::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const double s = scale_.size();
  painter.setPen(Qt::NoPen);
  if (lit_ || isDown()) {
    painter.setBrush(toColour(token("ink0")));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5 * s, 5 * s);
  } else if (isEnabled() && underMouse()) {
    painter.setBrush(QColor(255, 255, 255, 26));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5 * s, 5 * s);
  }
  const auto ink = !isEnabled() ? token("textOff") : lit_ ? token("tealHi") : token("text1");
  // The picture's glyphs stand below its head, which is 2 above the key's.
  const int head = scale_.at(2);
  picture_.drawGlyph(painter, rect().adjusted(0, -head + (isDown() ? 1 : 0), 0, 0), glyphLeft_, glyphWidth_,
                     toColour(ink));
  if (!lit_) return;
  painter.setBrush(toColour(token("teal")));
  const double wide = kToolBar.width() * s;
  painter.drawRoundedRect(QRectF((width() - wide) / 2, kToolBar.top() * s, wide, kToolBar.height() * s), s,
                          s);
}

}  // namespace kvo
