#include "windows/render/queue_panel.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/editor/page_list.h"

#include <QLabel>
#include <QPushButton>

namespace kvo {

QueuePanel::QueuePanel(const RenderState& state, const RenderActs& acts, QWidget* parent)
    : EditorPage(parent, kPlace, "plain"), state_(state) {
  write(tr("Queue"), "caption", {0, 0, 200, 18});
  Lst_Queue_ =
      put(made<PageList>(tr("Queue"), QString(), std::span<const char* const>(), this), {0, 22, 268, 106});
  Lst_Queue_->trailing = [this](int index) {
    const auto row = static_cast<std::size_t>(index);
    return row < state_.Lst_Queue.size() ? told(state_.Lst_Queue[row].state) : QString();
  };
  Lst_Queue_->chosen = [&acts](int row) { acts.chooseJob(row); };
  KVOBut_PauseJob_ = put(made<QPushButton>(this), {278, 22, 102, 28});
  connect(KVOBut_PauseJob_, &QPushButton::clicked, [&acts] { acts.pauseJob(); });
  KVOBut_RemoveJob_ = put(made<QPushButton>(tr("Remove"), this), {278, 58, 102, 28});
  KVOBut_RemoveJob_->setToolTip(tr("Take it out of the queue; what is finished of it goes, a movie stays"));
  connect(KVOBut_RemoveJob_, &QPushButton::clicked, [&acts] { acts.removeJob(); });
}

const QueuedRow* QueuePanel::chosen() const {
  const auto row = static_cast<std::size_t>(state_.queueRow);
  return row < state_.Lst_Queue.size() ? &state_.Lst_Queue[row] : nullptr;
}

void QueuePanel::draw() {
  std::vector<PageList::Row> rows;
  rows.reserve(state_.Lst_Queue.size());
  for (const auto& row : state_.Lst_Queue) rows.push_back({row.name, 0, row.failure});
  Lst_Queue_->drawRows(std::move(rows), state_.queueRow);
  Lst_Queue_->update();  // how far they are stands at their right
  const auto* row = chosen();
  const bool goesOn = row != nullptr && row->canGoOn;
  setTextOf(*KVOBut_PauseJob_, goesOn ? tr("Go On") : tr("Pause"));
  setTipOf(*KVOBut_PauseJob_, goesOn ? tr("Go on from what is finished")
                                     : tr("Keep what is finished, and let the next one begin"));
  KVOBut_PauseJob_->setEnabled(row != nullptr && (row->canPause || row->canGoOn));
  KVOBut_RemoveJob_->setEnabled(row != nullptr);
}

}  // namespace kvo
