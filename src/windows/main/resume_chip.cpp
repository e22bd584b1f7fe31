#include "windows/main/resume_chip.h"

#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/face_scale.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr double kResumeHeight = 24;  // pixels at size 1: the least that a finger or a mouse hits well
constexpr double kResumePadding = 10;
constexpr double kResumeIcon = 12;
constexpr double kResumeGap = 6;
constexpr double kResumeRoom = 8;  // to the edges of the picture
constexpr double kResumeText = 11.5;

}  // namespace

ResumeChip::ResumeChip(const ResumeState& state, std::function<void()> take, QWidget* picture)
    : QAbstractButton(picture), state_(state) {
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::clicked, std::move(take));
  hide();
}

void ResumeChip::draw(double size) {
  const auto offer = shown(state_.chip);
  if (offer.isEmpty()) return hide();
  const FaceScale scale(size, logicalDpiY());
  setFont(scale.text(kResumeText, QFont::Medium));
  if (text() != offer) {
    setText(offer);
    setAccessibleName(offer);
  }
  const int wide = scale.at(2 * kResumePadding + kResumeIcon + kResumeGap) +
                   QFontMetrics(font(), this).horizontalAdvance(offer);
  const int room = scale.at(kResumeRoom);
  const int high = scale.at(kResumeHeight);
  setGeometry(room, parentWidget()->height() - room - high,
              std::min(wide, parentWidget()->width() - 2 * room), high);
  show();
  raise();
}

void ResumeChip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const double size = height() / kResumeHeight;
  const double radius = height() / 2.0;
  painter.setPen(QPen(toColour(token("tealLo")), 1));
  painter.setBrush(toColour(isDown() ? token("keyDown") : underMouse() ? token("ink4") : token("tealBg")));
  painter.drawRoundedRect(onPixels(rect()), radius, radius);
  const int icon = qRound(kResumeIcon * size);
  const int left = qRound(kResumePadding * size);
  painter.drawPixmap(left, (height() - icon) / 2,
                     iconPicture("play", token("tealHi"), icon, devicePixelRatio()));
  painter.setFont(font());
  painter.setPen(toColour(token("text1")));
  const int textLeft = left + icon + qRound(kResumeGap * size);
  painter.drawText(rect().adjusted(textLeft, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, text());
}

}  // namespace kvo
