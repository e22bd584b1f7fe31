#include "windows/editor/effect_page.h"

#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/clip_list.h"
#include "windows/editor/ease_panel_part.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/refusal.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QToolButton>

namespace kvo {
namespace {

constexpr QRect kEffectsPlace(182, 34, 242, 398);
constexpr int kEffectRows = 21;
constexpr double kEffectPitch = 18.4;
constexpr int kEffectFirst = 39;  // middle of the first row, less half of its height
constexpr std::array kEffectColumns = {186, 304};
constexpr int kEffectWide = 117;
constexpr int kBlurSwitch = static_cast<int>(EffectSwitch::Blur);
constexpr int kMotionSwitch = static_cast<int>(EffectSwitch::MotionBlur);
constexpr int kAgeSwitch = static_cast<int>(EffectSwitch::FilmAge);
constexpr int kEaseSwitch = static_cast<int>(EffectSwitch::Ease);

// A switch in the list of effects: a row that is on has a ground, one with keyframes their sign.
class EffectRowBox final : public QCheckBox {
 public:
  EffectRowBox(const bool& keyframed, QWidget* parent) : QCheckBox(parent), keyframed_(keyframed) {}

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (isChecked()) {
      QPainter painter(this);
      const Painting kept(painter);
      painter.setPen(Qt::NoPen);
      painter.setBrush(toColour(token("tealBg")));
      painter.drawRoundedRect(rect(), themed(4), themed(4));
    }
    QCheckBox::paintEvent(event);
    if (!keyframed_) return;
    QPainter painter(this);
    const Painting kept(painter);
    painter.translate(width() - themed(10), height() / 2.0);
    painter.rotate(45);
    painter.setPen(QPen(toColour(token("amber")), themed(3) / 2.0));
    const double half = themed(7) / 2.0;
    painter.drawRect(QRectF(-half, -half, 2 * half, 2 * half));
  }

 private:
  const bool& keyframed_;
};

}  // namespace

EffectPage::EffectPage(EffectTab& state, PageLogic logic, std::function<void()> showKeyframes,
                       QWidget* parent)
    : EditorPage(parent),
      state_(state),
      logic_(std::move(logic)),
      showKeyframes_(std::move(showKeyframes)),
      clips_(put(made<PageClipList>(tr("Clips"), tr("No clips with a picture"), this), {16, 34, 150, 146})) {
  write(tr("Clips"), "caption", {16, 15, 150, 16});
  clips_->setToolTip(tr("The clip that is worked on"));
  clips_->chosen = [this](int row) {
    act([&] { chooseEffectClip(logic_.editing, state_, logic_.host, row); });
  };
  makeLevels();
  makeEffects();
  easePanel_ = put(made<EasePanelPart>(state_, logic_, kEffectsPlace.size(), this), kEffectsPlace);
}

void EffectPage::act(const std::function<void()>& work) {
  work();
  logic_.acted();
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
    act([&] { tickEffect(logic_.editing, state_, logic_.host, position, on); });
  });
  box->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(box, &QWidget::customContextMenuRequested, [this, box, position] { openOptions(*box, position); });
  return box;
}

QToolButton* EffectPage::makeSmallKey(const char* icon, const QString& tip, const QRect& place) {
  auto* key = put(made<QToolButton>(this), place);
  key->setProperty("kind", "quiet");
  key->setIcon(themeIcon(icon));
  key->setToolTip(tip);
  key->setAccessibleName(tip);
  return key;
}

void EffectPage::makeEffects() {
  write(tr("Effects"), "caption", {182, 15, 60, 16});
  auto* hint = write(tr("Right click for keyframes"), "hint", {232, 15, 192, 16});
  hint->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  effects_ = put(made<QFrame>(this), kEffectsPlace);
  effects_->setProperty("role", "list");
  for (int i = 1; i <= 2 * kEffectRows; ++i) {
    const auto column = static_cast<std::size_t>((i - 1) / kEffectRows);
    const int row = (i - 1) % kEffectRows;
    const int top = qRound(kEffectFirst + row * kEffectPitch);
    auto* box = put(made<EffectRowBox>(state_.faces[static_cast<std::size_t>(i)].isKeyframed, this),
                    {kEffectColumns[column], top, kEffectWide, 18});
    makeSwitch(box, i);
  }
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
    write(tr(heading), "caption", {16, top, 120, 16});
    makeSwitch(put(made<QCheckBox>(this), {16 - kMarkRoom, top + 16, 120, 24}), position)
        ->setAccessibleName(tr(heading));
    if (icon == nullptr) continue;
    auto* key = makeSmallKey(icon, position == kEaseSwitch ? tr("Ease options") : tr("Keyframes"),
                             {142, top - 4, 24, 24});
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
    levels_[i] = put(made<HeadedSlider>(names[i], this), places[i]);
    levels_[i]->moved = [this, i](int value) {
      act([&] { moveEffectLevel(logic_.editing, state_, logic_.host, static_cast<EffectLevel>(i), value); });
    };
  }
  easeIn_ = put(made<QRadioButton>(tr("In"), this), {82, 416, 44, 24});
  easeOut_ = put(made<QRadioButton>(tr("Out"), this), {126, 416, 54, 24});
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
  clips_->draw(state_.Lst_Clips, logic_.editing.collection);
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
  const bool eases = state_.faces[kEaseSwitch].isOn;
  easeOptions_->setVisible(eases);
  for (auto* option : {easeIn_, easeOut_})
    setWhyNot(*option, eases ? QString() : tr("Switch the effect on first"));
  (state_.ease.EaseIN ? easeIn_ : easeOut_)->setChecked(true);
  effects_->setVisible(!state_.ease.open);
  for (int i = 1; i <= 2 * kEffectRows; ++i)
    switches_[static_cast<std::size_t>(i)]->setVisible(!state_.ease.open);
  easePanel_->draw();
}

}  // namespace kvo
