#include "windows/main/key_label.h"

#include "ui/theme.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace kvo {
namespace {

constexpr double kHoverLight = 0.1;      // how much lighter
constexpr double kPressedShade = 0.35;   // how much darker
constexpr double kDisabledShade = 0.62;  // how much nearer to the ground

// The picture with a colour laid over what it covers.
QPixmap laidOver(const QPixmap& picture, QColor colour, double part) {
  auto toned = picture;
  QPainter painter(&toned);
  painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
  colour.setAlphaF(static_cast<float>(part));
  painter.fillRect(toned.rect(), colour);
  return toned;
}

}  // namespace

KeyLabel::KeyLabel(const QString& name, QWidget* parent) : HoverKey(parent) {
  setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where it is
  setName(name);
}

void KeyLabel::setName(const QString& name) {
  if (name == accessibleName()) return;
  setAccessibleName(name);
  setToolTip(name);
  if (!accessibleDescription().isEmpty()) describe();
}

void KeyLabel::setPicture(const QPixmap& picture, const QRect& part) {
  if (picture.cacheKey() == picture_.cacheKey() && part == part_) return;
  picture_ = picture;
  part_ = part;
  update();
}

void KeyLabel::setShape(const QRect& key, bool isRound) {
  setProperty("ringInset", QPoint(key.left(), key.top()));
  setProperty("ringRound", isRound);
}

void KeyLabel::setLit(bool lit) {
  if (lit == lit_) return;
  lit_ = lit;
  describe();
  if (!bar_.isEmpty()) update();
}

void KeyLabel::setBar(const QRectF& bar) {
  bar_ = bar;
  update();
}

void KeyLabel::describe() {
  setAccessibleDescription(lit_ ? tr("%1, lit").arg(accessibleName()) : accessibleName());
}

void KeyLabel::changeEvent(QEvent* event) {
  HoverKey::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) update();
}

// Arrows step, whichever key has the keyboard.
void KeyLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) return event->ignore();
  HoverKey::keyPressEvent(event);
}

void KeyLabel::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull()) return;
  QPainter painter(this);
  const auto draw = [&](const QPixmap& picture) { painter.drawPixmap(-part_.topLeft(), picture); };
  if (!isEnabled()) return draw(laidOver(picture_, toColour(token("ink1")), kDisabledShade));
  if (isDown()) return draw(laidOver(picture_, Qt::black, kPressedShade));
  if (underMouse()) draw(hover_.isNull() ? laidOver(picture_, Qt::white, kHoverLight) : hover_);
  if (!lit_ || bar_.isEmpty()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(token("teal")));
  painter.drawRoundedRect(bar_, bar_.height() / 2, bar_.height() / 2);
}

}  // namespace kvo
