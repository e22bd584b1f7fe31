#include "windows/editor/overlay_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/clip_list.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/overlay_positions.h"
#include "windows/editor/refusal.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

namespace kvo {
namespace {

constexpr int kOverlayRight = 227;
constexpr int kOverlayWide = 197;
constexpr int kOverlayFadeStep = 100;  // milliseconds
constexpr int kOverlaySlider = 174;
constexpr int kOverlaySliderPitch = 46;
constexpr int kListsShare = 65;
constexpr int kPositionsShare = 25;
constexpr int kLookShare = 90;
constexpr int kSliderShare = 8;

struct StyleRow {
  OverlayStyle style;
  const char* caption;
};
constexpr std::array<StyleRow, 3> kStyles{
    {{OverlayStyle::Uniform, QT_TRANSLATE_NOOP("kvo::OverlayPage", "Uniform")},
     {OverlayStyle::Radial, QT_TRANSLATE_NOOP("kvo::OverlayPage", "Radial - 32bit Color Req")},
     {OverlayStyle::Rectangular, QT_TRANSLATE_NOOP("kvo::OverlayPage", "Rectangular - 32bit Color Req")}}};

}  // namespace

OverlayPage::OverlayPage(OverlayTab& state, PageLogic logic, QWidget* parent)
    : TabPage(parent, std::move(logic)),
      state_(state),
      backdrops_(put(made<PageClipList>(tr("Backdrop"), tr("No clips with a picture"), this),
                     {16, 34, 197, 122}, {.wider = 50, .taller = kListsShare})),
      overlays_(put(made<PageClipList>(tr("Overlay"), tr("No clips with a picture"), this),
                    {kOverlayRight, 34, kOverlayWide, 122},
                    {.right = 50, .wider = 50, .taller = kListsShare})),
      positionName_(write({}, "caption", {16, 164, 204, 16}, {.down = kListsShare, .wider = 50})),
      positions_(put(made<OverlayPositions>(this), {16, 184, 194, 92},
                     {.down = kListsShare, .wider = 50, .taller = kPositionsShare})) {
  write(tr("Backdrop"), "caption", {16, 15, 197, 16});
  write(tr("Overlay"), "caption", {kOverlayRight, 15, kOverlayWide, 16}, {.right = 50});
  backdrops_->setToolTip(tr("The clip that lies below"));
  overlays_->setToolTip(tr("The clip that lies over the backdrop"));
  backdrops_->chosen = [this](int row) {
    act([&] { chooseBackdrop(logic_.editing, state_, logic_.host, row); });
  };
  overlays_->chosen = [this](int row) {
    act([&] { chooseOverlay(logic_.editing, state_, logic_.host, row); });
  };
  makeLook();
  makeSliders();
  makeSound();
}

void OverlayPage::makeLook() {
  positions_->chosen = [this](int position) {
    act([&] { chooseOverlayPosition(logic_.editing, state_, logic_.host, position); });
  };
  write(tr("Transparency"), "caption", {16, 290, 197, 16}, {.down = kLookShare});
  auto* group = made<QButtonGroup>(this);
  for (std::size_t i = 0; i < kStyles.size(); ++i) {
    styles_[i] = put(made<QRadioButton>(tr(kStyles[i].caption), this),
                     {16 - kMarkRoom, 307 + 22 * static_cast<int>(i), 214, 24}, {.down = kLookShare});
    styles_[i]->setToolTip(tr("How the edges of the overlay fade"));
    group->addButton(styles_[i]);
    connect(styles_[i], &QRadioButton::clicked, [this, style = kStyles[i].style] {
      act([&] { chooseOverlayStyle(logic_.editing, state_, logic_.host, style); });
    });
  }
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the page owns its group

void OverlayPage::makeSliders() {
  int top = kOverlaySlider, down = kListsShare;
  const auto slider = [&](const QString& name, auto rule) {
    auto* made = put(kvo::made<HeadedSlider>(name, this),
                     QRect(kOverlayRight, std::exchange(top, top + kOverlaySliderPitch), kOverlayWide,
                           HeadedSlider::kHeight),
                     {.right = 50, .down = std::exchange(down, down + kSliderShare), .wider = 50});
    made->moved = [this, rule](int value) { act([&] { rule(logic_.editing, state_, logic_.host, value); }); };
    return made;
  };
  opacity_ = slider(tr("Max Opacity"), moveMaxOpacity);
  fadeIn_ = slider(tr("Fade in of the overlay"), moveOverlayIn);
  fadeOut_ = slider(tr("Fade out of the overlay"), moveOverlayOut);
  for (auto* fade : {fadeIn_, fadeOut_}) fade->slider()->setSingleStep(kOverlayFadeStep);
  trim_ = put(made<QCheckBox>(tr("Trim Overlay length to\nbackdrop length (Rate Adjust)"), this),
              {kOverlayRight - kMarkRoom, 308, kOverlayWide + kMarkRoom + 10, 32},
              {.right = 50, .down = kLookShare});
  trim_->setAccessibleName(tr("Trim Overlay length to backdrop length (Rate Adjust)"));
  trim_->setToolTip(trim_->accessibleName());
  connect(trim_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickTrimOverlay(logic_.editing, state_, logic_.host, on); }); });
}

void OverlayPage::makeSound() {
  const auto box = [this](int top, const QString& tip, auto rule) {
    auto* made = put(kvo::made<QCheckBox>(this), {16 - kMarkRoom, top, 408, 24}, {.down = 100, .wider = 100});
    made->setToolTip(tip);
    connect(made, &QCheckBox::clicked,
            [this, rule](bool on) { act([&] { rule(logic_.editing, state_, logic_.host, on); }); });
    return made;
  };
  overlaySound_ = box(382, tr("The sound of the overlay goes into the new clip"), tickOverlaySound);
  backdropSound_ = box(404, tr("The sound of the backdrop goes into the new clip"), tickBackdropSound);
  clear_ = put(made<QPushButton>(themeIcon("bin"), tr("Clear"), this), {kOverlayRight, 346, 92, 28},
               {.right = 100, .down = 95});
  clear_->setToolTip(tr("Take the overlay off this backdrop"));
  connect(clear_, &QPushButton::clicked,
          [this] { act([&] { clearPicInPic(logic_.editing, state_, logic_.host); }); });
  KVOBut_RenderPinP_ = put(made<QPushButton>(themeIcon("movie"), tr("Render..."), this), {325, 346, 99, 28},
                           {.right = 100, .down = 95});
  KVOBut_RenderPinP_->setProperty("kind", "primary");
  KVOBut_RenderPinP_->setToolTip(tr("Make a clip of backdrop and overlay"));
  connect(KVOBut_RenderPinP_, &QPushButton::clicked, [this] { render(); });
  notice_ = write({}, "hint", {16, 428, 408, 16}, {.down = 100, .wider = 100});
}

void OverlayPage::draw() {
  const auto& collection = logic_.editing.collection;
  backdrops_->draw(state_.Lst_PicinPicBackdrop, collection, logic_.editing.editor);
  overlays_->draw(state_.Lst_PicinPicOverlays, collection, logic_.editing.editor);
  const auto noClip = told(state_.whyNot);
  setWhyNot(*overlays_, noClip);
  const auto position = static_cast<std::size_t>(state_.look.position - 1);
  setTextOf(*positionName_, tr("Position - %1").arg(told(std::string(overlayPositionNames()[position]))));
  positions_->draw(state_.look.position, state_.enabled);
  noteWhyNot(*positions_, noClip);
  for (std::size_t i = 0; i < kStyles.size(); ++i) {
    setWhyNot(*styles_[i], noClip);
    if (kStyles[i].style == state_.look.style) styles_[i]->setChecked(true);
  }
  opacity_->draw(state_.Sld_MaxTransparency, shown(state_.Sld_MaxTransparency.heading));
  fadeIn_->draw(state_.Sld_OverlayIn, shown(state_.Sld_OverlayIn.heading));
  fadeOut_->draw(state_.Sld_OverlayOut, shown(state_.Sld_OverlayOut.heading));
  setWhyNot(*trim_, noClip);
  trim_->setChecked(state_.look.trimToBackdrop);
  for (const auto& [box, sound] :
       {std::pair{overlaySound_, &state_.overlaySound}, {backdropSound_, &state_.backdropSound}}) {
    setTextOf(*box, told(sound->box.caption));
    setWhyNot(*box, told(sound->whyNot));
    box->setChecked(sound->isHeard());
  }
  const auto noPair = told(state_.pairWhyNot);
  setWhyNot(*clear_, noPair);
  setWhyNot(*KVOBut_RenderPinP_, noPair);
  setTextOf(*notice_, told(state_.notice));
}

}  // namespace kvo
