#include "windows/main/toolbar_part.h"

#include "base/numbers.h"
#include "playback/display/layout.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/part_pictures.h"
#include "windows/main/slider_handle.h"
#include "windows/main/tool_key.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <optional>
#include <utility>

namespace kvo {
namespace {

constexpr double kLabelTop = 2;
constexpr double kLabelHigh = 28;
constexpr double kBlobSide = 13;                                    // of the handle's picture
constexpr double kBlobReach = 24;                                   // of what takes the mouse about it
constexpr std::array kSeparators = {84.5, 246.17, 368.83, 410.17};  // of a picture 506 wide
constexpr double kPictureWide = 506;

constexpr std::array<const char*, kHitLabels> kNames = {
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Play"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Pause"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Rewind 5 frames"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "One frame back"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "One frame forward"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Advance 5 frames"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "A quarter of the speed"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Half the speed"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Twice the speed"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Slider"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Full Screen Mode"),
    QT_TRANSLATE_NOOP("kvo::ToolbarPart", "Normal Mode"),
};

std::optional<Step> stepOf(HitLabel label) {
  switch (label) {
    case HitLabel::Lbl_Rew5d:
      return Step::Rew5;
    case HitLabel::Lbl_Snglfrbackdummy:
      return Step::Rew1;
    case HitLabel::Lbl_F1Dummy:
      return Step::Adv1;
    case HitLabel::Lbl_Adv5dummy:
      return Step::Adv5;
    default:
      return std::nullopt;
  }
}

// What a label sets it to; 0 for one that sets none.
double rateOf(HitLabel label) {
  switch (label) {
    case HitLabel::lbl_Speed025:
      return 0.25;
    case HitLabel::Lbl_Speed05:
      return 0.5;
    case HitLabel::Lbl_Speed02:
      return 2;
    default:
      return 0;
  }
}

}  // namespace

ToolbarPart::ToolbarPart(const MainWindowState& state, const Acts& acts, const std::string& folder,
                         QWidget* parent)
    : HeldLine(acts.line, parent),
      state_(state),
      acts_(acts),
      folder_(folder),
      handle_(addHandle(tr("Position"), SliderHandleId::ImageBlob)) {
  for (std::size_t i = 0; i < kHitLabels; ++i) {
    keys_[i] = made<ToolKey>(picture_, tr(kNames[i]), this);
    if (const auto step = stepOf(static_cast<HitLabel>(i))) {
      acts_.steps.serve(*keys_[i], *step);
      keys_[i]->setEnabled(static_cast<bool>(acts_.steps.release));
      continue;
    }
    if (acts_.clicks[i]) connect(keys_[i], &ToolKey::clicked, acts_.clicks[i]);
    keys_[i]->setEnabled(static_cast<bool>(acts_.clicks[i]));
  }
  handle_->lower();  // below the keys, whose feet it reaches
}

void ToolbarPart::layOut(const FaceScale& scale) {
  scale_ = scale;
  picture_.load(folder_ + "Buttons/Toolbarb.bmp", scale.size(), devicePixelRatio());
  handle_->setPicture(partPicture(folder_ + "Parts/ImageBlob.bmp", scale.size(), devicePixelRatio()));
  for (auto* key : keys_) key->layOut(scale);
  setFixedHeight(scale.at(kToolbarHeight / kTwipsPerPixel));
  update();
}

int ToolbarPart::pixels(Twips twips) const { return qRound(twips / state_.mode.twipsPerPixel()); }

QString ToolbarPart::tipOf(HitLabel label) const {
  const auto step = stepOf(label);
  if (step != Step::Rew5 && step != Step::Adv5) return plainTip(told(state_.mode.toolbar[label].toolTip));
  const auto& tips = state_.transport.tips;
  const auto tip = plainTip(told(step == Step::Rew5 ? tips.rewind : tips.advance));
  return tip.isEmpty() ? tr(kNames[static_cast<std::size_t>(label)]) : tip;
}

void ToolbarPart::draw() {
  const Twips whole = std::max(state_.mode.toolbar.Img_Toolbar.place.width, 1.0);
  const double rate = ToNumber(state_.display.rate);
  for (std::size_t i = 0; i < kHitLabels; ++i) {
    const auto label = static_cast<HitLabel>(i);
    const auto& place = state_.mode.toolbar[label];
    auto& key = *keys_[i];
    key.setVisible(place.visible);
    key.setGlyph(place.left / whole, place.width / whole);
    key.setGeometry(pixels(place.left), scale_.at(kLabelTop), pixels(place.width), scale_.at(kLabelHigh));
    const bool isItsRate = rateOf(label) > 0 && rateOf(label) == rate;
    key.setLit(isItsRate || state_.mode.isLit(label));
    const auto tip = tipOf(label);
    if (!tip.isEmpty() && key.toolTip() != tip) {
      key.setToolTip(tip);
      key.setAccessibleName(tip);
    }
  }
  placeHandle();
  const Line now{state_.mode.slider, state_.slider.position, state_.slider.handles};
  if (std::exchange(drawn_, now) != now) update();
}

void ToolbarPart::placeHandle() {
  const auto& slider = state_.mode.slider;
  const int side = scale_.at(kBlobSide);
  const int reach = scale_.at(kBlobReach);
  const int x = pixels(placeOnLine(slider, state_.slider.position * 100));
  const int y = pixels(slider.Y);
  handle_->setGeometry(x - reach / 2, y - reach / 2, reach, reach);
  handle_->pictureAt = QPoint(reach - side, reach - side) / 2;
  handle_->setPart(state_.slider.position);
  handle_->setVisible(showsLine());
}

double ToolbarPart::lineAt(int x) const {
  return percentOnLine(state_.mode.slider, x * state_.mode.twipsPerPixel()) / 100;
}

// Nothing of the clip in hand stands on it where that has no length.
bool ToolbarPart::showsLine() const { return state_.mode.slider.ImageBlob.visible && state_.slider.handles; }

// From the feet of the keys down.
bool ToolbarPart::takes(const QPoint& at) const {
  const auto& slider = state_.mode.slider;
  return showsLine() && at.y() >= scale_.at(kLabelTop + kLabelHigh) && at.x() >= pixels(slider.X1) &&
         at.x() <= pixels(slider.X2);
}

QPoint ToolbarPart::below(double part) const {
  return {pixels(placeOnLine(state_.mode.slider, part * 100)), height()};
}

void ToolbarPart::mouseMoveEvent(QMouseEvent* event) {
  HeldLine::mouseMoveEvent(event);
  event->ignore();  // the face looks whether the mouse rests
}

void ToolbarPart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  picture_.drawGround(painter, rect());
  for (const double at : kSeparators) {
    const int x = qRound(at / kPictureWide * width());
    painter.fillRect(x, scale_.at(7), 1, scale_.at(18), toColour(token("ink0")));
    painter.fillRect(x + 1, scale_.at(7), 1, scale_.at(18), QColor(255, 255, 255, 18));
  }
  const Painting kept(painter);
  const double s = scale_.size();
  const auto& slider = state_.mode.slider;
  const double from = pixels(slider.X1);
  const double to = pixels(slider.X2);
  const double y = pixels(slider.Y);
  painter.setPen(Qt::NoPen);
  const auto bar = [&](double left, double right, double half, Rgb colour) {
    painter.setBrush(toColour(colour));
    painter.drawRoundedRect(QRectF(left, y - half, right - left, 2 * half), half, half);
  };
  bar(from - 4 * s, to + 4 * s, 3.5 * s, token("void"));
  if (!showsLine()) return;
  bar(from, to, s, token("line2"));
  bar(from, pixels(placeOnLine(slider, state_.slider.position * 100)), s, token("teal"));
}

}  // namespace kvo
