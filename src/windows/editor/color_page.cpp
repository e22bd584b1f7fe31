#include "windows/editor/color_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/clip_list.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/refusal.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace kvo {
namespace {

constexpr int kLevelLeft = 186;
constexpr int kLevelTop = 35;
constexpr int kLevelPitch = 50;
constexpr int kLevelWide = 238;
constexpr int kThresholdStep = 10;
constexpr QSize kSmallPicture(71, 53);
constexpr int kListShare = 75;
constexpr int kPictureShare = 15;
constexpr int kLevelShare = 12;
constexpr Share kBelowList{.down = kListShare, .wider = 30};

}  // namespace

ColorPage::ColorPage(ColorTab& state, PageLogic logic, Pictures pictures, QWidget* parent)
    : TabPage(parent, std::move(logic)),
      state_(state),
      pictures_(std::move(pictures)),
      clips_(put(made<PageClipList>(tr("Clips"), tr("No clips with a picture"), this), {16, 34, 150, 190},
                 {.wider = 30, .taller = kListShare})),
      sepia_(put(made<QCheckBox>(tr("Sepia"), this), {16 - kMarkRoom, 242, 150, 24}, kBelowList)),
      reset_(put(made<QPushButton>(themeIcon("repeat"), tr("Reset"), this), {16, 404, 150, 28},
                 {.down = 100, .wider = 30})) {
  write(tr("Clips"), "caption", {16, 15, 150, 16});
  clips_->setToolTip(tr("The clip that is worked on"));
  clips_->chosen = [this](int row) {
    act([&] { chooseColourClip(logic_.editing, state_, logic_.host, row); });
  };
  makeLevels();
  sepia_->setToolTip(tr("Tint the clip like an old photograph"));
  connect(sepia_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickSepia(logic_.editing, state_, logic_.host, on); }); });
  write(tr("All values at 0 leave\nthe clip as it is."), "hint", {16, 270, 150, 32}, kBelowList);
  reset_->setToolTip(tr("Set all values to 0"));
  connect(reset_, &QPushButton::clicked,
          [this] { act([&] { resetColours(logic_.editing, state_, logic_.host); }); });
  const std::array headings = {tr("Before"), tr("After")};
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    const int left = 16 + 79 * static_cast<int>(i);
    const int right = 15 * static_cast<int>(i);
    shown_[i] = {write(headings[i], "hint", {left, 314, kSmallPicture.width(), 16},
                       {.right = right, .down = kListShare}),
                 put(made<QLabel>(this), {{left, 332}, kSmallPicture},
                     {.right = right, .down = kListShare, .wider = 15, .taller = kPictureShare})};
    shown_[i].picture->setAccessibleName(headings[i]);
  }
}

void ColorPage::makeLevels() {
  constexpr Rgb kBlueDot = 0x5B9BFF;  // what the slider stands for, not a colour of the program
  for (std::size_t i = 0; i < kColourLevels; ++i) {
    const auto level = static_cast<ColourLevel>(i);
    levels_[i] = put(
        made<HeadedSlider>(told(std::string(colourLevelName(level))), this),
        QRect(kLevelLeft, kLevelTop + kLevelPitch * static_cast<int>(i), kLevelWide, HeadedSlider::kHeight),
        {.right = 30, .down = kLevelShare * static_cast<int>(i), .wider = 70});
    levels_[i]->moved = [this, level](int value) {
      act([&] { moveColourLevel(logic_.editing, state_, logic_.host, level, value); });
    };
  }
  levels_[static_cast<std::size_t>(ColourLevel::Threshold)]->slider()->setSingleStep(kThresholdStep);
  constexpr std::array kDots = {token("red"), token("green"), kBlueDot};
  for (std::size_t i = 0; i < kDots.size(); ++i) levels_[i]->setDot(kDots[i]);
}

void ColorPage::drawPictures() {
  const int clipNo = chosenClip(state_.Lst_ColorAdjust);
  const std::array sources = {&pictures_.before, &pictures_.after};
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    auto& part = shown_[i];
    const auto image = *sources[i] && clipNo > 0 ? (*sources[i])(clipNo) : QImage();
    part.heading->setVisible(!image.isNull());
    part.picture->setVisible(!image.isNull());
    if (image.isNull()) continue;
    const QSize pixels = part.picture->size() * devicePixelRatio();
    const bool isSame = std::exchange(part.key, image.cacheKey()) == image.cacheKey();
    if (isSame && part.picture->pixmap().size() == pixels) continue;
    auto scaled =
        QPixmap::fromImage(image.scaled(pixels, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation));
    scaled = scaled.copy(QRect(
        QPoint((scaled.width() - pixels.width()) / 2, (scaled.height() - pixels.height()) / 2), pixels));
    scaled.setDevicePixelRatio(devicePixelRatio());
    part.picture->setPixmap(scaled);
  }
}

void ColorPage::draw() {
  clips_->draw(state_.Lst_ColorAdjust, logic_.editing.collection, logic_.editing.editor);
  for (std::size_t i = 0; i < kColourLevels; ++i) {
    const auto& level = state_.levels[i];
    levels_[i]->draw(level, told(level.heading), QString::number(level.Value));
  }
  setWhyNot(*sepia_, told(state_.whyNot));
  sepia_->setChecked(state_.Chk_Sepia);
  setWhyNot(*reset_, told(state_.resetWhyNot));
  drawPictures();
}

}  // namespace kvo
