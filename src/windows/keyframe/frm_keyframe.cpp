#include "windows/keyframe/frm_keyframe.h"

#include "ui/made.h"
#include "ui/over_owner.h"
#include "ui/owner_place.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/page_list.h"
#include "windows/editor/refusal.h"
#include "windows/keyframe/keyframe_strip.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSlider>

namespace kvo {
namespace {

constexpr QSize kKeyframeWindow(760, 500);
constexpr int kTitleOfWindow = 28;  // that a desktop puts above it
constexpr QRect kListCard(16, 166, 232, 318);
constexpr QRect kControlsCard(260, 166, 484, 318);
constexpr int kControlsLeft = 274;
constexpr int kControlsWide = 456;
constexpr int kControlsHalf = 220;
constexpr int kLevelY = 201;
constexpr int kControlPitch = 40;
constexpr int kColourPitch = 116;
constexpr int kRoomOfBar = 24;  // beside the names in an open list

constexpr std::array kKeyframeIcons = {"key", "warn"};

}  // namespace

FrmKeyframe::FrmKeyframe(KeyframeWindow& state, PageLogic logic, Doors doors)
    : EditorPage(nullptr, kKeyframeWindow, "window"),
      state_(state),
      logic_(std::move(logic)),
      doors_(std::move(doors)),
      clipName_(write({}, "heading", {16, 14, 240, 20})),
      effectName_(write({}, "lit", {260, 14, 240, 20})),
      frame_(write({}, "hint", {444, 14, 300, 20})) {
  setWindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(tr("KVO5 - Keyframes"));
  setAccessibleName(tr("Keyframes"));
  frame_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  for (const auto& card : {kListCard, kControlsCard})
    put(made<QFrame>(this), card)->setProperty("role", "card");
  makeStrip();
  makeList();
  makeControls();
  makeShortcuts();
  sayWhyOff(*this);
}

// Those of the editor's window below, which cannot hear them.
void FrmKeyframe::makeShortcuts() {
  const auto go = [this](int steps) {
    act([&] { refuse(focusWidget() != nullptr ? *focusWidget() : *this, shown(doors_.goInHistory(steps))); });
  };
  addAction(QString(), QKeySequence("Ctrl+Z"), this, [go] { go(-1); });
  addAction(QString(), QKeySequence("Ctrl+Shift+Z"), this, [go] { go(1); });
  addAction(QString(), QKeySequence("Ctrl+Y"), this, [go] { go(1); });
}

// The frame that is shown goes with the slider, whatever has moved it.
void FrmKeyframe::act(const std::function<void()>& work) {
  const int before = state_.Sld_FramePosMaster.Value;
  work();
  if (state_.Sld_FramePosMaster.Value != before) doors_.showFrame(state_.Sld_FramePosMaster.Value);
  logic_.acted();
}

void FrmKeyframe::makeStrip() {
  strip_ = put(made<KeyframeStrip>(state_, this), {16, 42, 728, 92});
  strip_->setAccessibleName(tr("Keyframes over time"));
  strip_->setToolTip(tr("Drag a diamond to move its keyframe; arrow keys move the chosen one"));
  strip_->chosen = [this](int line) {
    act([&] { chooseKeyframe(logic_.editing, state_, logic_.host, line); });
  };
  strip_->dragged = [this](int line, Long frame, double level) {
    act([&] { dragKeyframe(logic_.editing, state_, logic_.host, line, frame, level); });
  };
  const auto goTo = [this](int frame) { act([&] { moveToFrame(state_, frame); }); };
  strip_->wentTo = goTo;
  // In line with the strip's frames: the handle's middle is at its first.
  master_ = put(made<HeadedSlider>(tr("Frame"), this), {30, 136, 700, HeadedSlider::kBareHeight});
  master_->moved = goTo;
}

void FrmKeyframe::makeList() {
  write(tr("Keyframes"), "caption", {30, 175, 180, 16});
  list_ = put(made<PageList>(tr("Keyframes"), tr("No keyframes"), kKeyframeIcons, this), {28, 198, 208, 178});
  list_->setToolTip(tr("Keyframes of this effect"));
  list_->chosen = [this](int line) {
    act([&] { chooseKeyframe(logic_.editing, state_, logic_.host, line); });
  };
  const auto key = [this](const QString& text, const QString& tip, const QRect& place, auto rule) {
    auto* made = put(kvo::made<QPushButton>(text, this), place);
    made->setToolTip(tip);
    connect(made, &QPushButton::clicked,
            [this, rule] { act([&] { rule(logic_.editing, state_, logic_.host); }); });
    return made;
  };
  add_ = key(tr("Add a new keyframe here"), tr("Add a new keyframe at this frame"), {28, 386, 208, 32},
             addKeyframeHere);
  add_->setProperty("kind", "primary");
  add_->setIcon(QIcon(iconPicture("add", token("onTeal"), themed(16), devicePixelRatio())));
  delete_ = key(tr("Delete"), tr("Delete the chosen keyframe"), {28, 426, 100, 28}, deleteChosenKeyframe);
  delete_->setIcon(themeIcon("bin"));
  deleteAll_ = key(tr("Delete all"), tr("Delete all keyframes but the first"), {136, 426, 100, 28},
                   deleteAllKeyframes);
  instantPreview_ = put(made<QCheckBox>(tr("Instant Preview"), this), {24, 457, 208, 24});
  instantPreview_->setToolTip(tr("Show each change at once"));
  connect(instantPreview_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickInstantPreview(logic_.editing, state_, logic_.host, on); }); });
}

void FrmKeyframe::makeControls() {
  heading_ = write({}, "caption", {kControlsLeft, 175, kControlsWide, 16});
  for (std::size_t i = 0; i < kKeyframeSliders; ++i) {
    const auto name = i == 0 ? tr("Effect Level") : tr("Control %1").arg(i);
    const int place = static_cast<int>(i) - 1;
    const QRect where =
        i == 0 ? QRect(kControlsLeft, kLevelY, kControlsWide, HeadedSlider::kHeight)
               : QRect(kControlsLeft + place % 2 * (kControlsWide - kControlsHalf),
                       kLevelY + 44 + place / 2 * kControlPitch, kControlsHalf, HeadedSlider::kHeight);
    sliders_[i] = put(made<HeadedSlider>(name, this), where);
    sliders_[i]->moved = [this, i](int value) {
      act([&] { moveKeyframeSlider(logic_.editing, state_, logic_.host, i, value); });
    };
  }
  sliders_[0]->slider()->setToolTip(tr("Effect Level, Effect Intensity, Opacity, Effect Visibility"));
  additive_ = put(made<QCheckBox>(tr("Overlay the blur on the picture"), this),
                  {kControlsLeft - kMarkRoom, kLevelY + 92, kControlsWide, 24});
  additive_->setToolTip(tr("Add the blur to the picture, in place of blurring it"));
  connect(additive_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickMblurAddative(logic_.editing, state_, logic_.host, on); }); });
  const std::array names = {tr("Fore color"), tr("Back color"), tr("Extra color"), tr("Texture color")};
  for (std::size_t i = 0; i < kKeyframeColours; ++i) {
    const int left = kControlsLeft + kColourPitch * static_cast<int>(i);
    colourNames_[i] = write(names[i], "hint", {left, 412, 108, 16});
    colours_[i] = put(made<QComboBox>(this), {left, 431, 108, 28});
    colours_[i]->setAccessibleName(names[i]);
    colours_[i]->setToolTip(names[i]);
    colours_[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(colours_[i], &QComboBox::activated, [this, i](int chosen) {
      act([&] { chooseParamColor(logic_.editing, state_, logic_.host, i, chosen); });
    });
  }
  colourNote_ = write(tr("Colors and texture do not change over time: the first keyframe decides."), "hint",
                      {kControlsLeft, 462, kControlsWide, 16});
}

void FrmKeyframe::drawList() {
  std::vector<PageList::Row> rows;
  for (std::size_t i = 0; i < state_.Lst_Keyframes.rows().size(); ++i)
    rows.push_back({state_.Lst_Keyframes.rows()[i], state_.ignored[i] ? 1 : 0});
  list_->drawRows(std::move(rows), state_.Lst_Keyframes.ListIndex);
}

void FrmKeyframe::drawControls() {
  const auto parts = partsOf(state_.controls);
  for (std::size_t i = 0; i < kKeyframeSliders; ++i) {
    sliders_[i]->setVisible(i < parts.sliders);
    const auto& slider = state_.sliders[i];
    if (i < parts.sliders) sliders_[i]->draw(slider, told(slider.heading), shown(state_.readings[i]));
  }
  additive_->setVisible(parts.additive);
  additive_->setChecked(state_.Chk_MblurAddative);
  drawColours(parts.colours);
}

void FrmKeyframe::drawColours(bool areThere) {
  colourNote_->setVisible(areThere);
  const bool isOther = drawnColours_ != state_.colours;
  for (std::size_t i = 0; i < kKeyframeColours; ++i) {
    const auto& colour = state_.Cmb_ParamColor[i];
    colours_[i]->setVisible(areThere);
    colourNames_[i]->setVisible(areThere);
    const auto name = shown(state_.colours.at(static_cast<std::size_t>(colour.chosen)));
    setWhyNot(*colours_[i], told(colour.whyNot), colourNames_[i]->text() + ": " + name);
    colourNames_[i]->setEnabled(colour.whyNot.empty());
    if (isOther) {
      colours_[i]->clear();
      for (const auto& entry : state_.colours) colours_[i]->addItem(shown(entry));
      auto* open = colours_[i]->view();  // the whole names, which the closed list has no room for
      open->setTextElideMode(Qt::ElideNone);
      open->setMinimumWidth(open->sizeHintForColumn(0) + themed(kRoomOfBar));
    }
    colours_[i]->setCurrentIndex(colour.chosen);
  }
  if (isOther) drawnColours_ = state_.colours;
}

void FrmKeyframe::draw(QWidget* owner) {
  if (!state_.visible) isPlaced_ = false;
  if (!state_.visible || owner == nullptr) return hide();
  setTextOf(*clipName_, shown(state_.clipName));
  setTextOf(*effectName_, told(state_.effectName));
  clipName_->resize(std::min(clipName_->sizeHint().width(), themed(240)), clipName_->height());
  effectName_->move(clipName_->geometry().right() + themed(8), clipName_->y());
  setTextOf(*frame_, shown(state_.Lbl_Frame));
  setTextOf(*heading_, told(state_.effectName));
  strip_->draw(doors_.picture ? doors_.picture(state_.clipNo) : QImage());
  strip_->setAccessibleDescription(shown(state_.Lbl_Frame));
  master_->draw(state_.Sld_FramePosMaster, {}, QString::number(state_.Sld_FramePosMaster.Value));
  drawList();
  drawControls();
  for (auto* key : {delete_, deleteAll_}) setWhyNot(*key, told(state_.whyNoDelete));
  instantPreview_->setChecked(state_.instantPreview);
  if (!isVisible()) appear(*owner);
}

void FrmKeyframe::appear(QWidget& owner) {
  if (isPlaced_) {
    show();  // where it was
  } else {
    showOverOwner(*this, owner);
    const QSize framed = size() + QSize(0, themed(kTitleOfWindow));
    const auto picture = doors_.picturePlace ? doors_.picturePlace() : QRect();
    move(offPicture(owner.frameGeometry(), picture, owner.screen()->availableGeometry(), framed));
  }
  isPlaced_ = true;
  activateWindow();
  list_->setFocus(Qt::OtherFocusReason);
}

void FrmKeyframe::keyPressEvent(QKeyEvent* event) {
  event->key() == Qt::Key_Escape ? static_cast<void>(close()) : EditorPage::keyPressEvent(event);
}

void FrmKeyframe::closeEvent(QCloseEvent* event) {
  event->accept();
  act([&] { SuspendKeyframeForm(logic_.editing, state_); });
}

}  // namespace kvo
