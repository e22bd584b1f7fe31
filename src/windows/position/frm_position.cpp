#include "windows/position/frm_position.h"

#include "ui/kvo_but.h"
#include "ui/theme.h"
#include "windows/position/position_digits.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace kvo {
namespace {

constexpr QSize kPositioner(440, 262);
constexpr QSize kPositionerCorner(284, 154);

struct StepKeyRow {
  const char* icon;
  const char* tip;
  void (Positioner::*act)();
};
constexpr std::array<StepKeyRow, 4> kStepKeys{
    {{"in", QT_TRANSLATE_NOOP("kvo::FrmPosition", "Goto Mark-IN frame"), &Positioner::gotoMarkIn},
     {"fb", QT_TRANSLATE_NOOP("kvo::FrmPosition", "Rewind 1 Frame"), &Positioner::Rewind1Frame},
     {"fwd", QT_TRANSLATE_NOOP("kvo::FrmPosition", "Advance 1 frame"), &Positioner::Advance1frame},
     {"out", QT_TRANSLATE_NOOP("kvo::FrmPosition", "Goto Mark-OUT frame"), &Positioner::gotoMarkOut}}};

}  // namespace

FrmPosition::FrmPosition(const PositionerState& state, Positioner& positioner, WindowPlace place,
                         std::function<void()> acted)
    : Floating(kPositioner, kPositionerCorner, Qt::Tool),
      state_(state),
      positioner_(positioner),
      place_(std::move(place)),
      acted_(std::move(acted)),
      title_(made<QLabel>(tr("Direct Positioner"), this)),
      digits_(made<PositionDigits>(state, positioner, acted_, this)),
      refusal_(made<QLabel>(this)) {
  made<FaceDrag>(*this);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the window owns what drags it
  setWindowTitle(tr("Direct Positioner"));
  title_->setAlignment(Qt::AlignCenter);
  title_->setProperty("role", "value");
  refusal_->setAlignment(Qt::AlignCenter);
  refusal_->setProperty("state", "bad");
  makeChoices();
  makeKeys();
  layOut();
}

void FrmPosition::act(const std::function<void()>& work) {
  work();
  acted_();
}

void FrmPosition::makeChoices() {
  const std::array whatto = {tr("Position Directly"), tr("Set Markout Point"), tr("Set MarkIn Point")};
  choices_ = made<QButtonGroup>(this);
  for (std::size_t i = 0; i < whatto_.size(); ++i) {
    whatto_[i] = made<QRadioButton>(whatto[i], this);
    choices_->addButton(whatto_[i]);
    connect(whatto_[i], &QAbstractButton::clicked,
            [this, i] { act([&] { positioner_.choose(static_cast<Whatto>(i)); }); });
  }
  const std::array increment = {tr("10ths"), tr("100ths"), tr("1000ths"), tr("Frames")};
  stepSizes_ = made<QButtonGroup>(this);
  for (std::size_t i = 0; i < increment_.size(); ++i) {
    increment_[i] = made<QPushButton>(increment[i], this);
    increment_[i]->setCheckable(true);
    increment_[i]->setStyleSheet("padding: 0;");
    stepSizes_->addButton(increment_[i]);
    connect(increment_[i], &QAbstractButton::clicked,
            [this, i] { act([&] { positioner_.choose(static_cast<Increment>(i)); }); });
  }
}

void FrmPosition::makeKeys() {
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    steps_[i] = made<QPushButton>(themeIcon(kStepKeys[i].icon), QString(), this);
    steps_[i]->setToolTip(tr(kStepKeys[i].tip));
    steps_[i]->setAccessibleName(tr(kStepKeys[i].tip));
    steps_[i]->setAutoRepeat(i == 1 || i == 2);
    connect(steps_[i], &QAbstractButton::clicked,
            [this, work = kStepKeys[i].act] { act([&] { (positioner_.*work)(); }); });
  }
  reset_ = made<QPushButton>(themeIcon("repeat"), tr("Reset both marks"), this);
  reset_->setToolTip(tr("Reset Mark-In and Mark-Out point for this clip"));
  connect(reset_, &QAbstractButton::clicked, [this] { act([&] { positioner_.reset(); }); });
  auto* apply = made<QPushButton>(QIcon(iconPicture("check", token("onTeal"))), tr("Apply"), this);
  apply->setProperty("kind", "primary");
  apply->setToolTip(tr("Apply your changes"));
  apply_ = apply;
  connect(apply_, &QAbstractButton::clicked, [this] { act([&] { positioner_.apply(); }); });
  auto* close = made<QToolButton>(this);
  close->setProperty("kind", "quiet");
  close->setIcon(themeIcon("close"));
  close->setToolTip(tr("Close"));
  close->setAccessibleName(tr("Close"));
  close_ = close;
  connect(close_, &QAbstractButton::clicked, [this] { act([&] { positioner_.close(); }); });
}

void FrmPosition::layOut() {
  title_->setGeometry(at(140, 12, 160, 22));
  close_->setGeometry(at(310, 11, 24, 24));
  digits_->setScale(scale());
  digits_->setGeometry(at(60, 40, 320, 62));
  for (std::size_t i = 0; i < whatto_.size(); ++i)
    whatto_[i]->setGeometry(at(38, 116 + 25.0 * static_cast<double>(i), 150, 22));
  constexpr double kSwitch = 209;
  for (std::size_t i = 0; i < increment_.size(); ++i) {
    const double wide = i < 3 ? kSwitch / 3 : kSwitch;
    increment_[i]->setGeometry(at(i < 3 ? 196 + kSwitch / 3 * static_cast<double>(i) : 196, 116, wide, 28));
  }
  for (std::size_t i = 0; i < steps_.size(); ++i)
    steps_[i]->setGeometry(at(196 + 53.0 * static_cast<double>(i), 152, 50, 34));
  reset_->setGeometry(at(86, 204, 152, 30));
  apply_->setGeometry(at(246, 204, 108, 32));
  refusal_->setGeometry(at(90, 187, 260, 16));
}

void FrmPosition::draw(QWidget* owner) {
  if (!state_.visible) return hide();
  for (std::size_t i = 0; i < whatto_.size(); ++i)
    whatto_[i]->setChecked(static_cast<Whatto>(i) == state_.Opt_Whatto);
  for (std::size_t i = 0; i < increment_.size(); ++i) {
    increment_[i]->setVisible((static_cast<Increment>(i) == Increment::Frames) == state_.framesOnly);
    increment_[i]->setChecked(static_cast<Increment>(i) == state_.Opt_Increment);
  }
  refusal_->setText(QString::fromStdString(state_.refusal));
  digits_->draw();
  if (isVisible()) return;
  showOver(owner, {0.5, 0.45}, &place_);
  activateWindow();
  digits_->setFocus(Qt::ShortcutFocusReason);
}

void FrmPosition::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      return act([&] { positioner_.close(); });
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return act([&] { positioner_.apply(); });
    default:
      Floating::keyPressEvent(event);
  }
}

void FrmPosition::closeEvent(QCloseEvent* event) {
  event->accept();
  act([&] { positioner_.close(); });
}

void FrmPosition::hideEvent(QHideEvent* event) {
  place_.keep(*this, pos());
  Floating::hideEvent(event);
}

}  // namespace kvo
