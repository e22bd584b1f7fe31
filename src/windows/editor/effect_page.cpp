#include "windows/editor/effect_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/clip_list.h"
#include "windows/editor/ease_panel_part.h"
#include "windows/editor/effect_rows.h"
#include "windows/editor/find_field.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/refusal.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>

namespace kvo {
namespace {

constexpr QRect kEffectsPlace(182, 42, 242, 370);
constexpr QRect kEasePlace(182, 14, 242, 418);
constexpr Share kEffectsShare{.right = 30, .wider = 70, .taller = 100};
constexpr int kHalfSlider = 90;  // two of them stand side by side
constexpr int kBlurSwitch = static_cast<int>(EffectSwitch::Blur);
constexpr int kMotionSwitch = static_cast<int>(EffectSwitch::MotionBlur);
constexpr int kAgeSwitch = static_cast<int>(EffectSwitch::FilmAge);
constexpr int kEaseSwitch = static_cast<int>(EffectSwitch::Ease);

}  // namespace

EffectPage::EffectPage(EffectTab& state, PageLogic logic, Choice choice, std::function<void()> showKeyframes,
                       QWidget* parent)
    : TabPage(parent, std::move(logic)),
      state_(state),
      choice_(choice),
      showKeyframes_(std::move(showKeyframes)),
      clips_(put(made<PageClipList>(tr("Clips"), tr("No clips with a picture"), this), {16, 34, 150, 146},
                 {.wider = 30, .taller = 100})) {
  write(tr("Clips"), "caption", {16, 15, 150, 16});
  clips_->setToolTip(tr("The clip that is worked on"));
  clips_->chosen = [this](int row) {
    act([&] { chooseEffectClip(logic_.editing, state_, logic_.host, row); });
  };
  makeLevels();
  makeEffects();
  easePanel_ = put(made<EasePanelPart>(state_, logic_, kEasePlace.size(), this), kEasePlace, kEffectsShare);
}

void EffectPage::openOptions(QWidget& where, int position) {
  act([&] {
    const auto configured = configure(logic_.editing, state_, logic_.host, position);
    if (configured.showsKeyframes) showKeyframes_();
    refuse(where, told(configured.whyNot));
  });
}

QCheckBox* EffectPage::makeSwitch(QCheckBox* box, int position) {
  switches_[static_cast<std::size_t>(position)] = box;
  connect(box, &QCheckBox::clicked, [this, position](bool on) {
    act([&] {
      position <= EffectRows::kRows
          ? tickNamed(logic_.editing, state_, logic_.host, choice_.names, position, on)
          : tickEffect(logic_.editing, state_, logic_.host, position, on);
    });
  });
  box->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(box, &QWidget::customContextMenuRequested, [this, box, position] { openOptions(*box, position); });
  return box;
}

QToolButton* EffectPage::makeSmallKey(const char* icon, const QString& tip, const QRect& place,
                                      const Share& share) {
  auto* key = put(made<QToolButton>(this), place, share);
  key->setProperty("kind", "quiet");
  key->setIcon(themeIcon(icon));
  key->setToolTip(tip);
  key->setAccessibleName(tip);
  return key;
}

void EffectPage::makeEffects() {
  effectsCaption_ = write(tr("Effects"), "caption", {182, 15, 60, 16}, {.right = 30});
  makeChoice();
  effects_ =
      put(made<EffectRows>(
              state_, choice_.samples,
              EffectRows::Acts{
                  [this](const std::string& name) { act([&] { choice_.names.toggleFavourite(name); }); },
                  [this](int position) { openOptions(*effects_->box(position), position); }},
              this),
          kEffectsPlace, kEffectsShare);
  for (int i = 1; i <= EffectRows::kRows; ++i) makeSwitch(effects_->box(i), i);
  noneFound_ = write(tr("No effect of that name"), "hint", {182, 82, 242, 16}, {.right = 30, .wider = 70});
  noneFound_->setAlignment(Qt::AlignCenter);
  hint_ = write(tr("Right click for keyframes"), "hint", {182, 416, 242, 16},
                {.right = 30, .down = 100, .wider = 70});
  hint_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void EffectPage::makeChoice() {
  find_ = put(made<FindField>(this), {250, 10, 146, 28}, {.right = 30, .wider = 70});
  find_->setPlaceholderText(tr("Find"));
  find_->setAccessibleName(tr("Find an effect by its name"));
  find_->setToolTip(find_->accessibleName());
  find_->setStyleSheet("padding: 0 2px;");
  favourites_ =
      makeSmallKey("star", tr("Favourites and those used last alone"), {400, 12, 24, 24}, {.right = 100});
  favourites_->setCheckable(true);
  connect(find_, &QLineEdit::textEdited,
          [this](const QString& text) { act([&] { choice_.names.find(text.toStdString()); }); });
  connect(favourites_, &QToolButton::clicked,
          [this](bool on) { act([&] { choice_.names.showFavouritesAlone(on); }); });
}

void EffectPage::makeLevels() {
  struct Section {
    const char* heading;
    const char* icon;
    int top, position;
  };
  constexpr std::array<Section, 4> kSections{{{QT_TR_NOOP("Blur"), "key", 194, kBlurSwitch},
                                              {QT_TR_NOOP("Motion blur"), "key", 264, kMotionSwitch},
                                              {QT_TR_NOOP("Film age"), nullptr, 332, kAgeSwitch},
                                              {QT_TR_NOOP("Ease \\ Motion"), "gear", 400, kEaseSwitch}}};
  for (std::size_t i = 0; i < kSections.size(); ++i) {
    const auto& [heading, icon, top, position] = kSections[i];
    write(tr(heading), "caption", {16, top, 120, 16}, {.down = 100});
    makeSwitch(put(made<QCheckBox>(this), {16 - kMarkRoom, top + 16, 120, 24}, {.down = 100}), position)
        ->setAccessibleName(tr(heading));
    if (icon == nullptr) continue;
    auto* key = makeSmallKey(icon, position == kEaseSwitch ? tr("Ease options") : tr("Keyframes"),
                             {142, top - 4, 24, 24}, {.right = 30, .down = 100});
    (position == kEaseSwitch ? easeOptions_ : keyframes_[i]) = key;
    connect(key, &QToolButton::clicked, [this, key, position = position] {
      if (position != kEaseSwitch) return openOptions(*key, position);
      act([&] { showEaseOpts(logic_.editing, state_, logic_.host, !state_.ease.open); });
    });
  }
  const std::array names = {tr("Blur radius"), tr("Motion blur strength"), tr("Motion blur direction"),
                            tr("Film age")};
  const std::array<QRect, kEffectLevels> places{
      QRect(16, 234, 150, HeadedSlider::kBareHeight), QRect(16, 302, 70, HeadedSlider::kBareHeight),
      QRect(96, 302, 70, HeadedSlider::kBareHeight), QRect(16, 372, 150, HeadedSlider::kBareHeight)};
  for (std::size_t i = 0; i < kEffectLevels; ++i) {
    const int wider = places[i].width() < kHalfSlider ? 15 : 30;
    const int right = places[i].x() > kHalfSlider ? 15 : 0;
    levels_[i] =
        put(made<HeadedSlider>(names[i], this), places[i], {.right = right, .down = 100, .wider = wider});
    levels_[i]->moved = [this, i](int value) {
      act([&] { moveEffectLevel(logic_.editing, state_, logic_.host, static_cast<EffectLevel>(i), value); });
    };
  }
  easeIn_ = put(made<QRadioButton>(tr("In"), this), {82, 416, 44, 24}, {.down = 100});
  easeOut_ = put(made<QRadioButton>(tr("Out"), this), {126, 416, 54, 24}, {.down = 100});
  auto* group = made<QButtonGroup>(this);
  for (auto* option : {easeIn_, easeOut_}) {
    group->addButton(option);
    option->setToolTip(option == easeIn_ ? tr("Ease in") : tr("Ease out"));
    connect(option, &QRadioButton::clicked, [this, isIn = option == easeIn_] {
      act([&] { chooseEase(logic_.editing, state_, logic_.host, isIn); });
    });
  }
}

void EffectPage::draw() {
  clips_->draw(state_.Lst_Clips, logic_.editing.collection, logic_.editing.editor);
  for (int i = 1; i <= EffectWord::kSwitches; ++i) {
    const auto& face = state_.faces[static_cast<std::size_t>(i)];
    auto* box = switches_[static_cast<std::size_t>(i)];
    setTextOf(*box, told(face.caption));
    setTipOf(*box, face.tip.empty() ? told(face.caption) : shown(face.tip));
    if (box->isChecked() != face.isOn) box->setChecked(face.isOn);
    box->setEnabled(state_.enabled);
    if (std::exchange(drawnKeyframed_[static_cast<std::size_t>(i)], face.isKeyframed) == face.isKeyframed)
      continue;
    box->setAccessibleDescription(face.isKeyframed ? tr("has keyframes") : QString());
    box->update();
  }
  for (std::size_t i = 0; i < kEffectLevels; ++i)
    levels_[i]->draw(state_.levels[i], {}, QString::number(state_.levels[i].Value));
  for (const auto& [key, position] : {std::pair{keyframes_[0], kBlurSwitch}, {keyframes_[1], kMotionSwitch}})
    key->setVisible(state_.faces[static_cast<std::size_t>(position)].isOn);
  easeOptions_->setVisible(state_.faces[kEaseSwitch].isOn);
  for (auto* option : {easeIn_, easeOut_}) setWhyNot(*option, told(state_.ease.whyNot));
  (state_.ease.EaseIN ? easeIn_ : easeOut_)->setChecked(true);
  drawEffects();
  easePanel_->draw();
}

void EffectPage::drawEffects() {
  const auto& names = state_.names;
  if (find_->text() != shown(names.find)) find_->setText(shown(names.find));
  favourites_->setChecked(names.onlyFavourites);
  favourites_->setIcon(QIcon(iconPicture("star", names.onlyFavourites ? token("amber") : token("text3"),
                                         themed(16), devicePixelRatio())));
  effects_->draw();
  for (auto* part : std::initializer_list<QWidget*>{effectsCaption_, find_, favourites_, effects_, hint_})
    part->setVisible(!state_.ease.open);
  noneFound_->setVisible(!state_.ease.open && names.shown.rows().empty());
}

}  // namespace kvo
