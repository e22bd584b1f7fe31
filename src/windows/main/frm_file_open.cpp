#include "windows/main/frm_file_open.h"

#include "windows/main/clip_list_part.h"
#include "windows/main/details_part.h"
#include "windows/main/empty_pane_part.h"
#include "windows/main/menu_part.h"
#include "windows/main/progress_part.h"
#include "windows/main/widgets.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QListView>
#include <QMimeData>
#include <QStackedWidget>
#include <QStatusBar>
#include <QUrl>
#include <utility>

namespace kvo {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kWidth = 8430 / kTwipsPerPixel;
constexpr int kHeight = 6150 / kTwipsPerPixel;
constexpr int kListShare = 3;  // of five parts of the width
constexpr int kDetailsShare = 2;

// A local name is taken by its bytes, which need not be UTF-8.
std::string pathOf(const QUrl& url) {
  return url.isLocalFile()
             ? QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString()
             : url.toString().toStdString();
}

}  // namespace

FrmFileOpen::FrmFileOpen(MainWindowState& state, const Logic& logic)
    : state_(state), logic_(logic), panel_(made<QStackedWidget>(this)) {
  resize(kWidth, kHeight);
  setAcceptDrops(true);
  const auto acted = [this] { draw(); };
  auto* page = made<QWidget>(panel_);
  emptyPane_ = made<EmptyPanePart>(std::cref(state.emptyPane), std::ref(logic_.media), acted, panel_);
  list_ = made<ClipListPart>(std::cref(state.list), std::ref(logic_.list), acted, page);
  details_ = made<DetailsPart>(std::cref(state.details), page);
  progress_ = made<ProgressPart>(std::ref(state.progress), this);
  auto* columns = made<QHBoxLayout>(page);
  columns->addWidget(list_, kListShare);
  columns->addWidget(details_, kDetailsShare);
  panel_->addWidget(emptyPane_);
  panel_->addWidget(page);
  setCentralWidget(panel_);
  statusBar()->addWidget(progress_, 1);
  list_->list()->addAction(makeMenus(*this, logic_.collection, logic_.media, acted));
  draw();
}

void FrmFileOpen::draw() {
  panel_->setCurrentIndex(state_.list.visible ? 1 : 0);
  emptyPane_->draw();
  list_->draw();
  details_->draw();
  progress_->draw();
  drawFace();
}

void FrmFileOpen::drawFace() {
  auto& face = state_.face;
  setWindowTitle(shown(face.caption));
  emptyPane_->setEnabled(face.controlsEnabled);
  if (!face.visible) return;
  if (!isVisible()) {
    face.fullScreen ? showFullScreen() : show();
    (state_.list.visible ? static_cast<QWidget*>(list_->list()) : emptyPane_)->setFocus();
  }
  if (std::exchange(face.raise, false)) {
    raise();
    activateWindow();
  }
}

void FrmFileOpen::closeEvent(QCloseEvent* event) {
  event->setAccepted(logic_.shutDown.exit());
  draw();
}

void FrmFileOpen::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void FrmFileOpen::dropEvent(QDropEvent* event) {
  std::vector<std::string> paths;
  for (const auto& url : event->mimeData()->urls()) paths.push_back(pathOf(url));
  event->acceptProposedAction();
  logic_.mailbox.takeFiles(paths);
  draw();
}

}  // namespace kvo
