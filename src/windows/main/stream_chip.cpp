#include "windows/main/stream_chip.h"

#include "program/face_parts.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/face_scale.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace kvo {
namespace {

constexpr double kStreamHeight = 20;  // pixels at size 1
constexpr double kStreamPadding = 10;
constexpr double kStreamRoom = 8;  // to the edges of the picture
constexpr double kStreamText = 10.5;

}  // namespace

StreamChip::StreamChip(const MainWindowState& state, QWidget* picture) : QWidget(picture), state_(state) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void StreamChip::draw() {
  const auto& mode = state_.mode;
  const auto& labels = state_.transport.stream;
  setVisible(saysStreamOnPicture(state_));
  if (isHidden()) return;
  const auto text = shown(labels.comesIn());
  const FaceScale scale(mode.interfaceSize, logicalDpiY());
  setFont(scale.number(kStreamText, QFont::Medium));
  const int room = scale.at(kStreamRoom);
  const int high = scale.at(kStreamHeight);
  const int wide = std::min(QFontMetrics(font(), this).horizontalAdvance(text) + scale.at(2 * kStreamPadding),
                            parentWidget()->width() - 2 * room);
  setGeometry(parentWidget()->width() - room - wide, parentWidget()->height() - room - high, wide, high);
  raise();
  if (text == text_ && lit_ == labels.bufferLit) return;
  text_ = text;
  lit_ = labels.bufferLit;
  setAccessibleName(text_);
  update();
}

void StreamChip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  painter.setPen(QPen(toColour(token("line2")), 1));
  painter.setBrush(toColour(token("plate")));
  painter.drawRoundedRect(onPixels(rect()), height() / 2.0, height() / 2.0);
  painter.setFont(font());
  painter.setPen(toColour(lit_ ? token("amber") : token("text1")));
  painter.drawText(rect(), Qt::AlignCenter, text_);
}

}  // namespace kvo
