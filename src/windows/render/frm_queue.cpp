#include "windows/render/frm_queue.h"

#include "ui/made.h"
#include "ui/theme.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace kvo {
namespace {

constexpr QSize kQueueWindow(560, 260);  // pixels at size 1
constexpr int kQueueEdge = 16;

}  // namespace

FrmQueue::FrmQueue(const QueueState& state, QueueActs acts, const WindowPlace& place,
                   std::function<void()> hide)
    : QWidget(nullptr, Qt::Window),
      state_(state),
      acts_(std::move(acts)),
      place_(place),
      hide_(std::move(hide)),
      panel_(made<QueuePanel>(state_, acts_, this)),
      KVOBut_ClearJobs_(made<QPushButton>(tr("Clear Finished"), this)) {
  setAttribute(Qt::WA_StyledBackground);
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(tr("KVO - Render Queue"));
  panel_->letGrow();
  auto* all = made<QVBoxLayout>(this);
  const int edge = themed(kQueueEdge);
  all->setContentsMargins(edge, edge, edge, edge);
  all->addWidget(panel_, 1);
  KVOBut_ClearJobs_->setToolTip(tr("Take those out of the list that are done; their movies stay"));
  all->addWidget(KVOBut_ClearJobs_, 0, Qt::AlignRight);
  connect(KVOBut_ClearJobs_, &QPushButton::clicked, [this] { acts_.clear(); });
}

void FrmQueue::draw(bool mayBeSeen) {
  if (!state_.isOpen || !mayBeSeen) {
    if (isVisible()) place_.keep(*this, pos());
    return QWidget::hide();
  }
  panel_->draw();
  KVOBut_ClearJobs_->setEnabled(state_.canClear);
  if (!isVisible()) {
    resize(themed(kQueueWindow.width()), themed(kQueueWindow.height()));
    place_.restoreWithSize(*this);
    show();
  }
  if (std::exchange(raises_, state_.raises) == state_.raises) return;
  raise();
  activateWindow();
  panel_->setFocus();
}

void FrmQueue::keyPressEvent(QKeyEvent* event) {
  event->key() == Qt::Key_Escape ? static_cast<void>(close()) : QWidget::keyPressEvent(event);
}

void FrmQueue::closeEvent(QCloseEvent* event) {
  event->accept();
  place_.keep(*this, pos());
  hide_();
}

}  // namespace kvo
