#include "windows/render/render_card.h"

#include "render/work_view.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/render/options_page.h"
#include "windows/render/pair_page.h"
#include "windows/render/render_head.h"
#include "windows/render/work_page.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace kvo {
namespace {

constexpr QSize kLeastPage(912, 374);  // pixels at size 1, as they are in the smallest window

}  // namespace

RenderCard::RenderCard(const RenderState& state, const QueueState& queue, RenderActs acts,
                       const PictureOfClip& picture, QWidget* parent)
    : QFrame(parent),
      state_(state),
      acts_(std::move(acts)),
      head_(made<RenderHead>(this)),
      frames_(made<QStackedWidget>(this)),
      options_(made<OptionsPage>(state_, queue, acts_, picture, frames_)),
      pair_(made<PairPage>(state_, acts_, picture, frames_)),
      work_(made<WorkPage>(state_, acts_, picture, frames_)) {
  setProperty("role", "card");
  setAccessibleName(tr("Create Movie"));
  auto* column = made<QVBoxLayout>(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(head_);
  column->addWidget(frames_, 1);
  for (EditorPage* page : std::initializer_list<EditorPage*>{options_, pair_, work_}) {
    auto* area = EditorPage::scrolled(page, accessibleName(), frames_, kLeastPage);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // So that the round corners of the card are seen below it.
    area->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    frames_->addWidget(area);
  }
  for (auto* key : findChildren<QPushButton*>()) key->setAutoDefault(true);  // Enter presses it
  layOut();
}

void RenderCard::layOut() { head_->setFixedHeight(themed(RenderHead::kHeight)); }

QWidget* RenderCard::firstFocus() const {
  switch (state_.frame) {
    case RenderFrame::Options:
      return options_->first();
    case RenderFrame::PicInPic:
      return pair_->writeKey();
    default:
      return work_->first();
  }
}

void RenderCard::draw() {
  if (state_.frame == RenderFrame::None) {
    drawn_ = RenderFrame::None;
    return;
  }
  head_->draw(told(state_.heading), renderStep(state_.frame));
  const bool isOptions = state_.frame == RenderFrame::Options;
  const bool isPair = state_.frame == RenderFrame::PicInPic;
  frames_->setCurrentIndex(isOptions ? 0 : isPair ? 1 : 2);
  isOptions ? options_->draw() : isPair ? pair_->draw() : work_->draw();
  if (isVisible() && std::exchange(drawn_, state_.frame) != state_.frame) firstFocus()->setFocus();
}

void RenderCard::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !state_.isRunning) return acts_.leave();
  event->key() == Qt::Key_Escape ? event->accept() : QFrame::keyPressEvent(event);
}

void RenderCard::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange) layOut();
  QFrame::changeEvent(event);
}

}  // namespace kvo
