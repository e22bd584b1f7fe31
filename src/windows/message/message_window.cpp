#include "windows/message/message_window.h"

#include "ui/compositing.h"
#include "ui/dib_section_region.h"
#include "ui/face_drag.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <cmath>

namespace kvo {
namespace {

constexpr int kFade = 120;  // milliseconds
constexpr int kTick = 100;  // milliseconds; the seconds that are shown are never late by more

Shadow shadow() { return {.down = themed(14), .soft = themed(18), .opacity = 0.55}; }

// By its first letter, with Alt or without.
bool isMeant(const QPushButton& key, const QKeyEvent& event) {
  constexpr auto kMayBeHeld = Qt::ShiftModifier | Qt::AltModifier;
  const auto letter = key.text().remove('&').left(1).toUpper();
  return (event.modifiers() & ~kMayBeHeld) == Qt::NoModifier && !letter.isEmpty() &&
         letter[0].unicode() == event.key();
}

}  // namespace

MessageWindow::MessageWindow(const MessageQuestion& question, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      answers_(question.answers),
      given_(question.answers.back()),
      copied_(question.face.caption + "\n\n" + question.face.lines.join('\n')),
      card_(made<MessageCard>(question.face, this)),
      seconds_(question.seconds),
      stands_(question.stands) {
  setAttribute(Qt::WA_TranslucentBackground);
  setWindowTitle(question.face.caption);
  setAccessibleName(question.face.caption);
  setAccessibleDescription(question.face.lines.join(' '));
  made<FaceDrag>(*this);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the window owns what drags it
  auto* all = made<QVBoxLayout>(this);
  all->setContentsMargins(hasCompositor() ? shadow().margins() : QMargins());
  all->setSizeConstraint(QLayout::SetFixedSize);
  all->addWidget(card_);
  for (std::size_t i = 0; i < card_->keys().size(); ++i) {
    connect(card_->keys()[i], &QAbstractButton::clicked, [this, i] { answer(i); });
  }
  connect(card_->closeKey(), &QAbstractButton::clicked, [this] { reject(); });
  connect(&tick_, &QTimer::timeout, [this] { look(); });
  auto* usual = question.isRisky ? card_->keys().back() : card_->keys().front();
  usual->setDefault(true);
  card_->keys().front()->setProperty("kind", QVariant());
  usual->setProperty("kind", "primary");
  if (auto* field = card_->field(); field != nullptr) {
    const auto allow = [this] { card_->keys().front()->setEnabled(!typed().trimmed().isEmpty()); };
    connect(field, &QLineEdit::textChanged, allow);
    allow();
    field->setFocus(Qt::ActiveWindowFocusReason);
  } else {
    usual->setFocus(Qt::ActiveWindowFocusReason);
  }
}

StyledAnswer MessageWindow::ask() {
  if (stands_ && !stands_()) return {answers_.back(), false};
  if (seconds_ > 0 || stands_) {
    since_.start();
    tick_.start(kTick);
    look();
  }
  exec();
  tick_.stop();
  return {given_, card_->neverAgain() != nullptr && card_->neverAgain()->isChecked()};
}

QString MessageWindow::typed() const {
  return card_->field() != nullptr ? card_->field()->text() : QString();
}

void MessageWindow::answer(std::size_t key) {
  given_ = answers_[key];
  accept();
}

void MessageWindow::reject() { answer(answers_.size() - 1); }

void MessageWindow::look() {
  if (stands_ && !stands_()) return reject();
  if (seconds_ > 0) countDown();
}

void MessageWindow::countDown() {
  const double left = seconds_ - static_cast<double>(since_.elapsed()) / 1000;
  if (left <= 0) return answer(0);
  card_->setCountdown(
      tr("%1 in %2 s").arg(card_->keys().front()->text().remove('&')).arg(static_cast<int>(std::ceil(left))));
}

void MessageWindow::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return QGuiApplication::clipboard()->setText(copied_);
  for (auto* key : card_->keys()) {
    if (isMeant(*key, *event)) return key->click();
  }
  QDialog::keyPressEvent(event);
}

void MessageWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (card_->geometry() != rect()) drawShadow(painter, card_->geometry(), MessageCard::radius(), shadow());
}

void MessageWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!hasCompositor()) {  // a region cuts the corners then
    const int corner = 2 * MessageCard::radius();
    const auto shape = roundRectRegion(width(), height(), corner, corner);
    ShapedWidget(*this).setShape(&shape);
  } else if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0) {
    auto* fade = made<QPropertyAnimation>(this, "windowOpacity", this);
    fade->setDuration(kFade);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
  }
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace kvo
