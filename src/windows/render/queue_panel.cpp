#include "windows/render/queue_panel.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"
#include "windows/editor/page_list.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <array>

namespace kvo {
namespace {

constexpr auto kJobFormat = "application/x-kvo5-job";
constexpr Share kListGrows{0, 0, 100, 100};
constexpr Share kAtRight{100, 0, 0, 0};
constexpr Share kWider{0, 0, 100, 0};
constexpr QRect kTrouble{56, 0, 324, 18};
constexpr std::array kJobIcons = {"movie"};
constexpr int kStepIcon = 16;

}  // namespace

QueuePanel::QueuePanel(const QueueState& state, const QueueActs& acts, QWidget* parent)
    : EditorPage(parent, kPlace, "plain"), state_(state), acts_(acts) {
  write(tr("Queue"), "caption", {0, 0, 56, 18});
  trouble_ = write({}, "hint", kTrouble, kWider);
  makeList();
  const auto key = [this](const QString& text, const char* keys, const QRect& place) {
    auto* button = put(made<QPushButton>(text, this), place, kAtRight);
    setKeys(*button, keys);
    return button;
  };
  KVOBut_PauseJob_ = key({}, "Space", {278, 22, 102, 28});
  KVOBut_RemoveJob_ = key(tr("Remove"), "Del", {278, 54, 102, 28});
  KVOBut_RemoveJob_->setToolTip(tr("Take it out of the queue; what is finished of it goes, a movie stays"));
  KVOBut_UpJob_ = key({}, "Ctrl+Up", {278, 86, 49, 28});
  KVOBut_UpJob_->setAccessibleName(tr("Earlier"));
  KVOBut_UpJob_->setToolTip(tr("Make it earlier"));
  KVOBut_DownJob_ = key({}, "Ctrl+Down", {331, 86, 49, 28});
  KVOBut_DownJob_->setAccessibleName(tr("Later"));
  KVOBut_DownJob_->setToolTip(tr("Make it later"));
  for (auto* step : {KVOBut_UpJob_, KVOBut_DownJob_}) step->setAutoRepeat(true);
  KVOBut_FolderJob_ = put(made<QPushButton>(tr("Open Folder"), this), {278, 86, 102, 28}, kAtRight);
  KVOBut_FolderJob_->setToolTip(tr("Show the folder that the movie is in"));
  connect(KVOBut_FolderJob_, &QPushButton::clicked, [this] { acts_.openFolder(); });
  KVOBut_UpJob_->setIcon(themeIcon("up"));
  KVOBut_DownJob_->setIcon(themeIcon("down"));
  setFocusProxy(Lst_Queue_);
  sizeIcons();
  connect(KVOBut_PauseJob_, &QPushButton::clicked, [this] { acts_.act(); });
  connect(KVOBut_RemoveJob_, &QPushButton::clicked, [this] { acts_.remove(); });
  connect(KVOBut_UpJob_, &QPushButton::clicked, [this] { acts_.move(state_.row); });
  connect(KVOBut_DownJob_, &QPushButton::clicked, [this] { acts_.move(state_.row + 2); });
}

void QueuePanel::makeList() {
  Lst_Queue_ =
      put(made<PageList>(tr("Queue"), tr("Nothing waits"), std::span<const char* const>(kJobIcons), this),
          {0, 22, 268, 106}, kListGrows);
  Lst_Queue_->trailing = [this](int index) {
    const auto row = static_cast<std::size_t>(index);
    return row < state_.Lst_Queue.size() ? told(state_.Lst_Queue[row].state) : QString();
  };
  Lst_Queue_->chosen = [this](int row) { acts_.choose(row); };
  Lst_Queue_->events.KeyDown = [this](const QKeyEvent& event) { pressKey(event); };
  Lst_Queue_->events.DblClick = [this] { view(); };
  Lst_Queue_->commandKey = [this](const QKeyEvent& event) {
    if (event.key() != Qt::Key_Space) return false;
    if (KVOBut_PauseJob_->isEnabled()) acts_.act();
    return true;
  };
  Lst_Queue_->dragOut = [this](int index) {
    auto carried = std::make_unique<QMimeData>();
    const auto row = static_cast<std::size_t>(index);
    if (row < state_.Lst_Queue.size())
      carried->setData(kJobFormat, QByteArray::number(state_.Lst_Queue[row].number));
    return carried;
  };
  Lst_Queue_->accepts = [](const QMimeData& carried) { return carried.hasFormat(kJobFormat); };
  Lst_Queue_->dropped = [this](const QMimeData& carried, int before) { drop(carried, before); };
}

void QueuePanel::pressKey(const QKeyEvent& event) {
  if (chosenRow(state_) == nullptr) return;
  const bool moves = event.modifiers().testFlag(Qt::ControlModifier);
  if (moves && event.key() == Qt::Key_Up) return acts_.move(state_.row);
  if (moves && event.key() == Qt::Key_Down) return acts_.move(state_.row + 2);
  if (event.key() == Qt::Key_Delete) acts_.remove();
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) view();
}

void QueuePanel::view() {
  if (queueKeys(state_).hasMovie) acts_.act();
}

// While it was carried the queue may have changed.
void QueuePanel::drop(const QMimeData& carried, int before) {
  const int number = carried.data(kJobFormat).toInt();
  for (std::size_t row = 0; row < state_.Lst_Queue.size(); ++row) {
    if (state_.Lst_Queue[row].number != number) continue;
    const int from = static_cast<int>(row);
    acts_.choose(from);
    acts_.move(from < before ? before : before + 1);
    return;
  }
}

void QueuePanel::draw() {
  if (drawn_ == state_) return;
  drawn_ = state_;
  std::vector<PageList::Row> rows;
  rows.reserve(state_.Lst_Queue.size());
  for (const auto& row : state_.Lst_Queue) rows.push_back({row.name, 0, row.failure});
  Lst_Queue_->drawRows(std::move(rows), state_.row);
  Lst_Queue_->update();  // how far they are stands at their right
  drawKeys();
  drawTrouble();
}

void QueuePanel::drawKeys() {
  const auto keys = queueKeys(state_);
  setTextOf(*KVOBut_PauseJob_, told(keys.act));
  setTipOf(*KVOBut_PauseJob_, told(keys.actTip));
  KVOBut_PauseJob_->setEnabled(keys.canAct);
  KVOBut_RemoveJob_->setEnabled(keys.canRemove);
  KVOBut_UpJob_->setEnabled(keys.canGoUp);
  KVOBut_DownJob_->setEnabled(keys.canGoDown);
  KVOBut_UpJob_->setVisible(!keys.hasMovie);
  KVOBut_DownJob_->setVisible(!keys.hasMovie);
  KVOBut_FolderJob_->setVisible(keys.hasMovie);
}

// Why the queue has stopped, or the chosen one has failed.
void QueuePanel::drawTrouble() {
  const auto why = shown(queueKeys(state_).why);
  markBad(*trouble_, !why.isEmpty());
  setTextOf(*trouble_, QFontMetrics(trouble_->font()).elidedText(why, Qt::ElideMiddle, trouble_->width()));
  setTipOf(*trouble_, why);
  if (trouble_->accessibleName() != why) trouble_->setAccessibleName(why);
}

void QueuePanel::sizeIcons() {
  const int side = themed(kStepIcon);
  for (auto* step : {KVOBut_UpJob_, KVOBut_DownJob_}) step->setIconSize({side, side});
}

void QueuePanel::changeEvent(QEvent* event) {
  EditorPage::changeEvent(event);
  if (event->type() == QEvent::StyleChange && KVOBut_DownJob_ != nullptr) sizeIcons();
}

void QueuePanel::resizeEvent(QResizeEvent* event) {
  EditorPage::resizeEvent(event);
  if (trouble_ != nullptr) drawTrouble();
}

}  // namespace kvo
