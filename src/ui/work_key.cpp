#include "ui/work_key.h"

#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <cmath>

namespace kvo {
namespace {

// Pixels at size 1.
constexpr double kWorkPad = 6;
constexpr double kWorkRing = 13;
constexpr double kWorkRingLine = 2.5;
constexpr double kWorkGap = 6;
constexpr double kWorkText = 11.5;
constexpr double kWorkRadius = 4;
constexpr double kWorkInset = 2;

constexpr double kWorkTurn = 360 * 16.0;  // as a painter counts it
constexpr int kWorkTop = 90 * 16;

}  // namespace

WorkKey::WorkKey(QWidget* parent) : HoverKey(parent) {
  setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where it is
  setCursor(Qt::PointingHandCursor);
  hide();
}

void WorkKey::draw(const QString& words, const QString& about, double share, bool isBad, double size) {
  setVisible(!words.isEmpty());
  if (text() == words && accessibleDescription() == about && isBad_ == isBad && size_ == size &&
      std::lround(share * 100) == std::lround(share_ * 100))
    return;
  share_ = share;
  isBad_ = isBad;
  size_ = size;
  auto face = font();
  face.setPixelSize(qRound(kWorkText * size));
  face.setWeight(QFont::Medium);
  setFont(face);
  setText(words);
  setAccessibleName(words);
  setAccessibleDescription(about);
  setToolTip(plainTip(about));
  updateGeometry();
  update();
}

QSize WorkKey::sizeHint() const {
  const double about = (2 * kWorkPad + kWorkRing + kWorkGap) * size_;
  return {static_cast<int>(std::ceil(about)) + QFontMetrics(font(), this).horizontalAdvance(text()),
          qRound(kHeight * size_)};
}

void WorkKey::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  if (isDown() || underMouse()) {
    const double inset = kWorkInset * size_;
    painter.setPen(Qt::NoPen);
    painter.setBrush(toColour(isDown() ? token("keyDown") : token("ink4")));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0, inset, 0, -inset), kWorkRadius * size_,
                            kWorkRadius * size_);
  }
  const double side = kWorkRing * size_;
  const QRectF sign(kWorkPad * size_, (height() - side) / 2, side, side);
  if (isBad_) {
    const int icon = qRound(side);
    painter.drawPixmap(sign.topLeft().toPoint(),
                       iconPicture("warn", token("amber"), icon, devicePixelRatio()));
  } else {
    const double line = kWorkRingLine * size_;
    const auto ring = sign.adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(toColour(token("line2")), line));
    painter.drawEllipse(ring);
    painter.setPen(QPen(toColour(token("teal")), line, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(ring, kWorkTop, -static_cast<int>(std::lround(kWorkTurn * share_)));
  }
  painter.setFont(font());
  painter.setPen(toColour(isDown() ? token("tealHi") : token("text1")));
  const int left = qRound(sign.right() + kWorkGap * size_);
  painter.drawText(rect().adjusted(left, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   text());
}

}  // namespace kvo
