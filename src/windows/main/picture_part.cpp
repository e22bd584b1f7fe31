#include "windows/main/picture_part.h"

#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <utility>

namespace kvo {
namespace {

constexpr QRectF kPicturePlate(277, 27, 267, 202);
constexpr QRectF kNameLabel(277, 31, 267, 18);
constexpr QRectF kPicture(287, 54, 247, 144);
constexpr QRectF kChips(287, 203, 247, 20);
constexpr double kChipTop = 204;
constexpr double kChipHeight = 18;
constexpr double kChipPadding = 7;
constexpr double kChipGap = 5;
constexpr double kChipText = 10.5;
constexpr QRectF kAnimChip(460, 204, 74, 18);
constexpr double kAnimIcon = 12;
constexpr QRectF kLargePicture(59, 54, 444, 259);

}  // namespace

ChipsPart::ChipsPart(const MainWindowState& state, QWidget* parent) : QWidget(parent), state_(state) {}

void ChipsPart::layOut(const FaceScale& scale) {
  scale_ = scale;
  setGeometry(placedIn(*parentWidget(), scale, kChips));
  update();
}

void ChipsPart::draw() {
  const auto& panels = state_.mode.panels;
  const bool anim = panels.Label2.visible && state_.mode.Med_AudAnim.visible;
  if (drawn_ == state_.details.chips && animDrawn_ == anim && animOnDrawn_ == panels.Label2On) return;
  drawn_ = state_.details.chips;
  animDrawn_ = anim;
  animOnDrawn_ = panels.Label2On;
  QStringList told;
  for (const auto& chip : drawn_) told << shown(chip);
  if (anim) told << (panels.Label2On ? "Anim ON" : "Anim OFF");
  setAccessibleName(told.join(", "));
  update();
}

void ChipsPart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const auto font = scale_.text(kChipText, QFont::Medium);
  painter.setFont(font);
  const double radius = kChipHeight / 2 * scale_.size();
  const double end = animDrawn_ ? kAnimChip.left() - kChipGap : kChips.right();
  double left = kChips.left();
  for (const auto& chip : drawn_) {
    const auto text = shown(chip);
    const double width = QFontMetricsF(font, this).horizontalAdvance(text) / scale_.size() + 2 * kChipPadding;
    if (left + width > end) break;  // what has no room is told by the details
    const auto box = placedIn(*this, scale_, {left, kChipTop, width, kChipHeight});
    painter.setPen(Qt::NoPen);
    painter.setBrush(toColour(token("ink3")));
    painter.drawRoundedRect(box, radius, radius);
    painter.setPen(toColour(token("text2")));
    painter.drawText(box, Qt::AlignCenter, text);
    left += width + kChipGap;
  }
  if (animDrawn_) drawAnim(painter);
}

void ChipsPart::drawAnim(QPainter& painter) const {
  const double radius = kChipHeight / 2 * scale_.size();
  const auto box = placedIn(*this, scale_, kAnimChip);
  const auto ink = animOnDrawn_ ? token("tealHi") : token("text2");
  painter.setPen(animOnDrawn_ ? QPen(toColour(token("tealLo")), scale_.hairline()) : QPen(Qt::NoPen));
  painter.setBrush(toColour(animOnDrawn_ ? token("tealBg") : token("ink3")));
  painter.drawRoundedRect(onPixels(box), radius, radius);
  const int icon = scale_.at(kAnimIcon);
  painter.drawPixmap(box.left() + scale_.at(kChipPadding), box.top() + (box.height() - icon) / 2,
                     iconPicture("fx", ink, icon, devicePixelRatio()));
  painter.setPen(toColour(ink));
  painter.drawText(box.adjusted(scale_.at(kChipPadding) + icon, 0, 0, 0), Qt::AlignCenter,
                   animOnDrawn_ ? "Anim ON" : "Anim OFF");
}

PicturePart::PicturePart(const MainWindowState& state, ClipPicture& pictures, QWidget* parent)
    : Plate(kPicturePlate, 7, parent),
      state_(state),
      name_(made<FaceLabel>(
          kNameLabel.adjusted(10, 0, -10, 0),
          LabelLook{.weight = QFont::DemiBold, .side = Qt::AlignHCenter, .elide = Qt::ElideMiddle}, this)),
      box_(made<PictureBox>(state, pictures, this)),
      chips_(made<ChipsPart>(state, this)) {}

void PicturePart::layOut(const FaceScale& scale) {
  Plate::layOut(scale);
  name_->layOut(scale);
  box_->setGeometry(placedIn(*this, scale, kPicture));
  chips_->layOut(scale);
}

void PicturePart::draw() {
  name_->write(shown(state_.details.name));
  box_->draw();
  chips_->draw();
}

LargePicturePart::LargePicturePart(const MainWindowState& state, ClipPicture& pictures, QWidget* parent)
    : Plate(kLargePicture, 3, parent), box_(made<PictureBox>(state, pictures, this)) {
  setGround(Qt::black);
}

void LargePicturePart::layOut(const FaceScale& scale) {
  Plate::layOut(scale);
  box_->setGeometry(placedIn(*this, scale, kLargePicture.adjusted(1, 1, -1, -1)));
}

void LargePicturePart::draw() { box_->draw(); }

}  // namespace kvo
