#include "windows/editor/ease_panel_part.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/headed_slider.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

namespace kvo {
namespace {

constexpr int kEaseLeft = 12;
constexpr int kEaseWide = 218;
constexpr int kEaseFirst = 36;
constexpr int kEasePitch = 44;
constexpr int kEaseHalf = 104;
constexpr Share kFirstHalf{.wider = 50};
constexpr Share kSecondShare{.right = 50, .wider = 50};

}  // namespace

EasePanelPart::EasePanelPart(EffectTab& state, const PageLogic& logic, QSize size, QWidget* parent)
    : TabPage(parent, logic, size, "list"), state_(state) {
  write(tr("Ease options"), "caption", {kEaseLeft, 10, kEaseWide, 16});
  const std::array names = {tr("Ease progress speed"), tr("Motion speed"), tr("Starting magnification"),
                            tr("Ending magnification")};
  for (std::size_t i = 0; i < kEaseLevels; ++i) {
    const int top = kEaseFirst + kEasePitch * static_cast<int>(i);
    sliders_[i] = put(made<HeadedSlider>(names[i], this),
                      QRect(kEaseLeft, top, kEaseWide, HeadedSlider::kHeight), {.wider = 100});
    sliders_[i]->moved = [this, i](int value) {
      act([&] { moveEase(logic_.editing, state_, logic_.host, static_cast<EaseLevel>(i), value); });
    };
  }
  constexpr int kChoices = kEaseFirst + kEasePitch * static_cast<int>(kEaseLevels) + 2;
  constexpr int kSecond = kEaseLeft + kEaseWide - kEaseHalf;
  write(tr("Move"), "hint", {kEaseLeft, kChoices, kEaseHalf, 16});
  direction_ = makeDirections(tr("Move direction"), moveDirections(),
                              {kEaseLeft, kChoices + 18, kEaseHalf, 28}, kFirstHalf);
  connect(direction_, &QComboBox::activated, [this](int index) {
    act([&] { chooseMoveDirection(logic_.editing, state_, logic_.host, index); });
  });
  write(tr("Rotation"), "hint", {kSecond, kChoices, kEaseHalf, 16}, kSecondShare);
  rotation_ = makeDirections(tr("Rotation direction"), rotationDirections(),
                             {kSecond, kChoices + 18, kEaseHalf, 28}, kSecondShare);
  connect(rotation_, &QComboBox::activated,
          [this](int index) { act([&] { chooseRotation(logic_.editing, state_, logic_.host, index); }); });
  camera_ =
      put(made<QCheckBox>(tr("Revolve camera"), this), {kEaseLeft - kMarkRoom, kChoices + 54, kEaseWide, 24});
  camera_->setToolTip(tr("Turn the camera around the picture"));
  connect(camera_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickRotateCam(logic_.editing, state_, logic_.host, on); }); });
  const std::array defaults = {tr("Default IN"), tr("Default OUT")};
  for (std::size_t i = 0; i < defaults.size(); ++i) {
    auto* key =
        put(made<QPushButton>(defaults[i], this),
            {i == 0 ? kEaseLeft : kSecond, kChoices + 88, kEaseHalf, 28}, i == 0 ? kFirstHalf : kSecondShare);
    key->setToolTip(i == 0 ? tr("Comes closer, from three quarters of its size") : tr("Moves away"));
    connect(key, &QPushButton::clicked, [this, isIn = i == 0] {
      act([&] { pressEaseDefault(logic_.editing, state_, logic_.host, isIn); });
    });
  }
  auto* back = put(made<QPushButton>(themeIcon("back"), tr("Back to the effects"), this),
                   {kEaseLeft, size.height() - 40, kEaseWide, 28}, {.down = 100, .wider = 100});
  back->setToolTip(tr("Show the list of effects again"));
  connect(back, &QPushButton::clicked,
          [this] { act([&] { showEaseOpts(logic_.editing, state_, logic_.host, false); }); });
}

QComboBox* EasePanelPart::makeDirections(const QString& name, std::span<const std::string_view> directions,
                                         const QRect& place, const Share& share) {
  const std::array shownAs = {tr("None"), tr("In"), tr("Out"), tr("Left"), tr("Right"), tr("Up"), tr("Down")};
  constexpr std::string_view kOrder[] = {"", "in", "out", "left", "right", "up", "down"};
  auto* box = put(made<QComboBox>(this), place, share);
  box->setAccessibleName(name);
  box->setToolTip(name);
  for (const auto direction : directions) {
    const auto* const found = std::find(std::begin(kOrder), std::end(kOrder), direction);
    box->addItem(shownAs.at(static_cast<std::size_t>(found - std::begin(kOrder))));
  }
  return box;
}

void EasePanelPart::draw() {
  const auto& ease = state_.ease;
  setVisible(ease.open);
  if (!ease.open) return;
  for (std::size_t i = 0; i < kEaseLevels; ++i)
    sliders_[i]->draw(ease.sliders[i], shown(ease.sliders[i].heading));
  direction_->setCurrentIndex(ease.direction);
  rotation_->setCurrentIndex(ease.rotation);
  camera_->setChecked(ease.Chk_RotateCam);
}

}  // namespace kvo
