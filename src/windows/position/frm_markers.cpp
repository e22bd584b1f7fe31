#include "windows/position/frm_markers.h"

#include "ui/made.h"
#include "ui/owner_place.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <utility>

namespace kvo {
namespace {

constexpr QSize kIndex(260, 320);
constexpr int kBeside = 8;  // pixels from the window that it belongs to

}  // namespace

FrmMarkers::FrmMarkers(const MarkersState& state, Markers& markers, WindowPlace place,
                       std::function<void()> acted)
    : QWidget(nullptr, Qt::Tool),
      state_(state),
      markers_(markers),
      place_(std::move(place)),
      acted_(std::move(acted)),
      list_(made<QListWidget>(this)) {
  auto* all = made<QVBoxLayout>(this);
  all->setContentsMargins(8, 8, 8, 8);
  all->addWidget(list_);
  list_->setAccessibleName(tr("Index"));
  resize(kIndex);
  const auto choose = [this](const QListWidgetItem* item) {
    markers_.choose(list_->row(item));
    acted_();
  };
  connect(list_, &QListWidget::itemClicked, choose);
  connect(list_, &QListWidget::itemActivated, choose);
}

void FrmMarkers::standBeside(const QWidget& owner) {
  move(besideOwner(owner.frameGeometry(), owner.screen()->availableGeometry(), size(), kBeside));
}

void FrmMarkers::draw(QWidget* owner) {
  if (!state_.visible) return hide();
  setWindowTitle(told(state_.title));
  if (std::exchange(revision_, state_.list.revision()) != state_.list.revision()) {
    list_->clear();
    for (const auto& line : state_.list.rows()) list_->addItem(QString::fromStdString(line));
    reached_ = -1;
  }
  if (std::exchange(reached_, state_.reached) != state_.reached) list_->setCurrentRow(state_.reached);
  if (isVisible()) return;
  if (owner != nullptr) {
    place_.isKept() ? place_.restoreWithSize(*this) : standBeside(*owner);
    winId();
    windowHandle()->setTransientParent(owner->windowHandle());
  }
  setAttribute(Qt::WA_ShowWithoutActivating);
  show();
}

void FrmMarkers::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  markers_.close();
  acted_();
}

void FrmMarkers::closeEvent(QCloseEvent* event) {
  event->accept();
  markers_.close();
  acted_();
}

void FrmMarkers::hideEvent(QHideEvent* event) {
  place_.keep(*this, pos());
  QWidget::hideEvent(event);
}

}  // namespace kvo
