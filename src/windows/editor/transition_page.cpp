#include "windows/editor/transition_page.h"

#include "ui/colour_button.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"
#include "windows/editor/clip_list.h"
#include "windows/editor/find_field.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/particle_part.h"
#include "windows/editor/refusal.h"
#include "windows/editor/transition_tiles.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QToolButton>

namespace kvo {
namespace {

constexpr int kLeft = 16;
constexpr int kLeftWidth = 150;
constexpr QRect kTilesPlace(182, 42, 242, 390);
constexpr Share kTilesShare{.right = 30, .wider = 70, .taller = 100};
constexpr Share kBelow{.down = 100, .wider = 30};  // what stands below the list of clips
constexpr int kMostBorderPixels = 255;

}  // namespace

TransitionPage::TransitionPage(Logic logic, QWidget* parent)
    : EditorPage(parent), logic_(std::move(logic)), state_(logic_.state) {
  makeLeft();
  makeBorder();
  makeOptions();
  makeChoice();
}

void TransitionPage::act(const std::function<void()>& work) {
  if (isDrawing_) return;
  work();
  logic_.acted();
}

void TransitionPage::makeLeft() {
  auto& rules = logic_.rules;
  write(tr("Transition into"), "caption", {kLeft, 15, kLeftWidth, 16});
  Lst_TransitionMovies_ = put(made<PageClipList>(tr("Clips"), tr("No clips with a picture"), this),
                              {kLeft, 34, kLeftWidth, 170}, {.wider = 30, .taller = 100});
  Lst_TransitionMovies_->commandKey = [](const QKeyEvent&) { return false; };  // letters are the window's
  Lst_TransitionMovies_->chosen = [this, &rules](int row) { act([&] { rules.chooseMovie(row); }); };
  Fra_FadDur_ = write({}, "caption", {kLeft, 210, kLeftWidth, 30}, kBelow);
  Fra_FadDur_->setWordWrap(true);
  Fra_FadDur_->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
  Sld_In_ = put(made<HeadedSlider>(tr("Transition Duration"), this),
                {kLeft, 243, kLeftWidth, HeadedSlider::kHeight}, kBelow);
  Sld_In_->moved = [this, &rules](int tenths) { act([&] { rules.moveDuration(tenths); }); };
  Sld_In_->letGo = [this, &rules] { act([&] { rules.letGo(); }); };
}

QSpinBox* TransitionPage::makeNumber(const QString& name, int least, const QRect& place) {
  auto* box = put(made<QSpinBox>(this), place, {.down = 100});
  box->setRange(least, kMostBorderPixels);
  box->setButtonSymbols(QAbstractSpinBox::NoButtons);
  box->setKeyboardTracking(false);
  box->setAccessibleName(name);
  box->setToolTip(name);
  box->setStyleSheet("min-height: 22px; padding: 0 6px;");
  return box;
}

void TransitionPage::changeBorder(const std::function<void(BorderBoxes&)>& change) {
  act([&] {
    auto wanted = state_.border;
    change(wanted);
    logic_.rules.changeBorder(wanted);
  });
}

void TransitionPage::makeBorder() {
  struct Row {
    const char* caption;
    int top;
  };
  constexpr std::array<Row, 3> kRows{
      {{QT_TR_NOOP("Width"), 306}, {QT_TR_NOOP("Softness"), 334}, {QT_TR_NOOP("Replicate"), 362}}};
  borderParts_.push_back(write(tr("Border"), "caption", {kLeft, 285, kLeftWidth, 16}, kBelow));
  for (const auto& [caption, top] : kRows)
    borderParts_.push_back(write(tr(caption), "hint", {kLeft, top, 62, 24}, {.down = 100}));
  constexpr std::array<int BorderBoxes::*, 4> kNumbers = {&BorderBoxes::BorderWidth,
                                                          &BorderBoxes::BorderSoftness,
                                                          &BorderBoxes::ReplicateX, &BorderBoxes::ReplicateY};
  border_ = {makeNumber(tr("Width of the border in pixels"), 0, {80, 306, 40, 24}),
             makeNumber(tr("Softness of the border in pixels"), 0, {80, 334, 40, 24}),
             makeNumber(tr("How often the shape is repeated across"), 1, {80, 362, 40, 24}),
             makeNumber(tr("How often the shape is repeated down"), 1, {126, 362, 40, 24})};
  for (std::size_t i = 0; i < border_.size(); ++i) {
    connect(border_[i], &QSpinBox::valueChanged, [this, number = kNumbers[i]](int value) {
      if (!isDrawing_) changeBorder([&](BorderBoxes& boxes) { boxes.*number = value; });
    });
    borderParts_.push_back(border_[i]);
  }
  borderParts_.push_back(write(tr("Color"), "hint", {128, 306, 40, 24}, {.down = 100}));
  colour_ = put(made<ColourButton>(0, this), {126, 334, 40, 24}, {.down = 100});
  colour_->setAccessibleName(tr("Color of the border"));
  colour_->setToolTip(tr("Color of the border"));
  colour_->setStyleSheet("padding: 0; min-height: 22px; font-size: 1px; color: transparent;");
  colour_->chosen = [this](Rgb rgb) { changeBorder([&](BorderBoxes& boxes) { boxes.BorderColor = rgb; }); };
  borderParts_.push_back(colour_);
  mask_ = put(made<QCheckBox>(tr("Use a Jpeg Image as a\ntransition Mask"), this),
              {kLeft - 4, 392, kLeftWidth + 8, 32}, kBelow);
  mask_->setAccessibleName(tr("Use a Jpeg Image as a transition Mask"));
  mask_->setToolTip(mask_->accessibleName());
  connect(mask_, &QCheckBox::clicked, [this](bool on) { tickMask(on); });
  borderParts_.push_back(mask_);
  currentMask_ = write({}, "hint", {kLeft, 425, kLeftWidth, 16}, kBelow);
  borderParts_.push_back(currentMask_);
}

void TransitionPage::tickMask(bool on) {
  const auto path = on ? logic_.askForMask() : std::string();
  act([&] {
    if (!on || !path.empty()) logic_.rules.chooseMask(path);
  });
  draw();  // also when the user has left the question
}

void TransitionPage::makeOptions() {
  auto& rules = logic_.rules;
  firstCaption_ = write({}, "caption", {kLeft, 285, kLeftWidth, 16}, kBelow);
  first_ = put(made<QLineEdit>(this), {kLeft, 304, 70, 28}, {.down = 100});
  first_->setMaxLength(static_cast<int>(TransitionRules::kMostDigits));
  first_->setValidator(made<QRegularExpressionValidator>(QRegularExpression("[0-9]*"), first_));
  first_->setPlaceholderText(tr("usual"));
  connect(first_, &QLineEdit::textEdited,
          [this, &rules](const QString& text) { act([&] { rules.typeFirstOption(text.toStdString()); }); });
  secondCaption_ = write({}, "caption", {kLeft, 340, kLeftWidth, 16}, kBelow);
  second_ = put(made<QComboBox>(this), {kLeft, 359, kLeftWidth, 28}, kBelow);
  second_->setPlaceholderText(tr("usual"));
  connect(second_, &QComboBox::activated, [this, &rules](int row) {
    act([&] { rules.chooseSecondOption(second_->itemData(row).toString().toStdString()); });
  });
  Cmd_ParticleOpts_ =
      put(made<QPushButton>(tr("Particle options"), this), {kLeft, 290, kLeftWidth, 30}, kBelow);
  Cmd_ParticleOpts_->setCheckable(true);
  Cmd_ParticleOpts_->setToolTip(tr("How many particles there are and how they move"));
  connect(Cmd_ParticleOpts_, &QPushButton::clicked,
          [this, &rules](bool on) { act([&] { rules.openParticles(on); }); });
}

void TransitionPage::makeChoice() {
  auto& rules = logic_.rules;
  put(made<QFrame>(this), {182, 9, 132, 30}, {.right = 30})->setProperty("role", "list");
  cut_ = put(made<QPushButton>(tr("Cut"), this), {185, 12, 46, 24}, {.right = 30});
  transition_ = put(made<QPushButton>(tr("Transition"), this), {231, 12, 80, 24}, {.right = 30});
  cut_->setToolTip(tr("The clip follows without a transition"));
  transition_->setToolTip(tr("A transition leads into the clip"));
  setKeys(*transition_, "D");
  auto* one = made<QButtonGroup>(this);
  for (auto* key : {cut_, transition_}) {
    key->setCheckable(true);
    key->setProperty("kind", "switch");
    one->addButton(key);
    connect(key, &QPushButton::clicked,
            [this, &rules, isCut = key == cut_] { act([&] { rules.chooseCut(isCut); }); });
  }
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the page owns its group
  find_ = put(made<FindField>(this), {320, 10, 78, 28}, {.right = 30, .wider = 70});
  find_->setPlaceholderText(tr("Find"));
  find_->setAccessibleName(tr("Find a transition by its name"));
  find_->setToolTip(find_->accessibleName());
  find_->setStyleSheet("padding: 0 2px;");
  favourites_ = put(made<QToolButton>(this), {400, 12, 24, 24}, {.right = 100});
  favourites_->setProperty("kind", "quiet");
  favourites_->setCheckable(true);
  favourites_->setToolTip(tr("Favourites and those used last alone"));
  favourites_->setAccessibleName(favourites_->toolTip());
  connect(find_, &QLineEdit::textEdited,
          [this, &rules](const QString& text) { act([&] { rules.names().find(text.toStdString()); }); });
  connect(favourites_, &QToolButton::clicked,
          [this, &rules](bool on) { act([&] { rules.names().showFavouritesAlone(on); }); });
  instead_ = write({}, "hint", kTilesPlace, kTilesShare);
  instead_->setAlignment(Qt::AlignCenter);
  instead_->setWordWrap(true);
  Lst_Transitions_ = put(
      made<TransitionTiles>(
          state_, logic_.samples,
          TransitionTiles::Acts{
              [this, &rules](const std::string& name) { act([&] { rules.pick(name); }); },
              [this, &rules](int steps) { act([&] { rules.pickNext(steps); }); },
              [this, &rules](const std::string& name) { act([&] { rules.names().toggleFavourite(name); }); }},
          this),
      kTilesPlace, kTilesShare);
  particles_ =
      put(made<ParticlePart>(state_.particles,
                             ParticlePart::Acts{[this, &rules](const ParticleBoxes& wanted) {
                                                  act([&] { rules.changeParticles(wanted); });
                                                },
                                                [this, &rules] { act([&] { rules.openParticles(false); }); }},
                             kTilesPlace.size(), this),
          kTilesPlace, kTilesShare);
}

void TransitionPage::draw() {
  isDrawing_ = true;
  Lst_TransitionMovies_->draw(state_.Lst_TransitionMovies, logic_.collection, logic_.rules.editor());
  const auto& panel = state_.panel;
  setTextOf(*Fra_FadDur_, told(panel.Fra_FadDur));
  markBad(*Fra_FadDur_, panel.durationIsShort);
  Fra_FadDur_->setVisible(panel.listVisible);
  Sld_In_->setVisible(panel.listVisible);
  Sld_In_->draw({0, state_.Sld_InMax, state_.Sld_In, state_.whyNone.empty(), {}}, shown(state_.inOver),
                shown(state_.length));
  drawBorder();
  drawOptions();
  drawChoice();
  isDrawing_ = false;
}

void TransitionPage::drawBorder() {
  for (auto* part : borderParts_) part->setVisible(state_.panel.options.bordersAndMask);
  const auto& border = state_.border;
  const std::array values = {border.BorderWidth, border.BorderSoftness, border.ReplicateX, border.ReplicateY};
  for (std::size_t i = 0; i < border_.size(); ++i) border_[i]->setValue(values[i]);
  if (colour_->colour() != border.BorderColor) colour_->setColour(border.BorderColor);
  mask_->setChecked(border.usesMask);
  const auto current = shown(state_.panel.currentMask);
  setTextOf(*currentMask_,
            currentMask_->fontMetrics().elidedText(current, Qt::ElideMiddle, currentMask_->width()));
  setTipOf(*currentMask_, current);
}

void TransitionPage::drawOptions() {
  const auto& options = state_.panel.options;
  const auto text = [](std::string_view view) {
    return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
  };
  const auto first = text(options.firstCaption), second = text(options.secondCaption);
  for (QWidget* part : {static_cast<QWidget*>(firstCaption_), static_cast<QWidget*>(first_)})
    part->setVisible(!first.isEmpty());
  for (QWidget* part : {static_cast<QWidget*>(secondCaption_), static_cast<QWidget*>(second_)})
    part->setVisible(!second.isEmpty());
  setTextOf(*firstCaption_, first);
  first_->setAccessibleName(first);
  setTipOf(*first_, first);
  if (first_->text() != shown(state_.firstOption)) first_->setText(shown(state_.firstOption));
  if (second_->accessibleName() != second) {
    second_->setAccessibleName(second);
    setTipOf(*second_, second);
    setTextOf(*secondCaption_, second);
    second_->clear();
    for (const auto value : options.secondValues) second_->addItem(text(value), text(value));
  }
  second_->setCurrentIndex(second_->findData(shown(state_.secondOption)));
  Cmd_ParticleOpts_->setVisible(state_.panel.Cmd_ParticleOpts);
  Cmd_ParticleOpts_->setChecked(state_.particlesOpen);
}

void TransitionPage::drawChoice() {
  const auto pane = paneOf(state_);
  (pane == TransitionPane::Hint ? cut_ : transition_)->setChecked(true);
  for (auto* key : {cut_, transition_}) setWhyNot(*key, told(state_.whyNone));
  const auto noTiles = told(whyNoTiles(state_));
  setWhyNot(*find_, noTiles);
  if (find_->text() != shown(state_.names.find)) find_->setText(shown(state_.names.find));
  favourites_->setChecked(state_.names.onlyFavourites);
  setWhyNot(*favourites_, noTiles);
  favourites_->setIconSize(QSize(themed(16), themed(16)));
  favourites_->setIcon(
      QIcon(iconPicture("star", state_.names.onlyFavourites ? token("amber") : token("text3"), themed(16),
                        devicePixelRatio())));
  Lst_Transitions_->setVisible(pane == TransitionPane::Tiles);
  if (pane == TransitionPane::Tiles) Lst_Transitions_->draw();
  particles_->setVisible(pane == TransitionPane::Particles);
  particles_->draw();
  instead_->setVisible(pane == TransitionPane::Hint);
  setTextOf(*instead_, told(hintOf(state_)));
}

}  // namespace kvo
