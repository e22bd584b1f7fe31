#include "windows/main/frm_file_open.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStringListModel>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

namespace kvo {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kWidth = 8430 / kTwipsPerPixel;
constexpr int kHeight = 6150 / kTwipsPerPixel;
constexpr int kListShare = 3;  // of five parts of the width
constexpr int kDetailsShare = 2;
constexpr int kGap = 8;  // pixels

// Widgets belong to their parents.
template <class Widget, class... Arguments>
Widget* made(Arguments... arguments) {
  return new Widget(arguments...);  // NOLINT(cppcoreguidelines-owning-memory)
}

QString shown(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

FrmFileOpen::FrmFileOpen(MainWindowState& state, Commands commands)
    : state_(state), commands_(std::move(commands)) {
  resize(kWidth, kHeight);
  setAcceptDrops(true);
  makePanel();
  makeMenus();
  draw();
}

void FrmFileOpen::makePanel() {
  panel_ = made<QStackedWidget>(this);

  emptyPane_ = made<QPushButton>(panel_);
  emptyPane_->setFlat(true);
  emptyPane_->setObjectName("emptyPane");
  emptyPane_->setStyleSheet(
      "QPushButton#emptyPane { background: #1e2430; color: #d8dee9; font-size: 18px; border: none; }"
      "QPushButton#emptyPane:focus { border: 1px solid #88a0c8; }");
  emptyPane_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(emptyPane_, &QWidget::customContextMenuRequested, [this] { commands_.AddMedia(); });
  connect(emptyPane_, &QPushButton::clicked, [this] { commands_.AddMedia(); });
  panel_->addWidget(emptyPane_);

  auto* page = made<QWidget>(panel_);
  auto* columns = made<QHBoxLayout>(page);
  auto* listSide = made<QVBoxLayout>();
  listCaption_ = made<QLabel>(page);
  fillist_ = made<QListView>(page);
  clips_ = made<QStringListModel>(this);
  details_ = made<QLabel>(page);
  auto font = listCaption_->font();
  font.setBold(true);
  listCaption_->setFont(font);
  listCaption_->setTextFormat(Qt::PlainText);
  listCaption_->setBuddy(fillist_);
  fillist_->setModel(clips_);
  fillist_->setStyleSheet("QListView::item { padding: 3px; }");
  fillist_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fillist_->setUniformItemSizes(true);
  fillist_->setAlternatingRowColors(true);
  fillist_->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(fillist_->selectionModel(), &QItemSelectionModel::currentChanged, [this](const QModelIndex& row) {
    if (!row.isValid() || row.row() == state_.ListIndex) return;
    commands_.selectClip(row.row() + 1);
    draw();
  });
  details_->setContentsMargins(kGap, 0, 0, 0);
  details_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  details_->setWordWrap(true);
  details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  listSide->addWidget(listCaption_);
  listSide->addWidget(fillist_);
  columns->addLayout(listSide, kListShare);
  columns->addWidget(details_, kDetailsShare);
  panel_->addWidget(page);
  setCentralWidget(panel_);

  status_ = made<QLabel>(this);
  abort_ = made<QPushButton>(this);
  abort_->setFlat(true);
  connect(abort_, &QPushButton::clicked, [this] { state_.abortClicked = true; });
  statusBar()->addWidget(status_, 1);
  statusBar()->addPermanentWidget(abort_);
}

void FrmFileOpen::makeMenus() {
  auto* file = menuBar()->addMenu(tr("&File"));
  const auto add = [&](const QString& text, const QKeySequence& keys, std::function<void()> command) {
    auto* action = file->addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, [this, command = std::move(command)] {
      command();
      draw();
    });
    return action;
  };
  add(tr("&New"), QKeySequence::New, commands_.New);
  add(tr("&Open..."), QKeySequence::Open, commands_.Open);
  add(tr("&Save..."), QKeySequence::Save, commands_.Save);
  file->addSeparator();
  auto* media = add(tr("&Add Media..."), QKeySequence(Qt::Key_Insert), commands_.AddMedia);
  file->addSeparator();
  add(tr("E&xit"), QKeySequence::Quit, [this] { close(); });
  fillist_->addAction(media);
}

void FrmFileOpen::draw() {
  setWindowTitle(shown(state_.caption));
  panel_->setCurrentIndex(state_.listVisible ? 1 : 0);
  emptyPane_->setText(state_.noVideoPanel ? shown(state_.NoMediaPrompt) : QString());
  emptyPane_->setEnabled(state_.controlsEnabled);
  listCaption_->setText(shown(state_.listCaption));
  details_->setVisible(state_.detailsVisible);
  drawList();
  drawDetails();
  status_->setText(shown(state_.status).replace("\r\n", " "));
  abort_->setText(shown(state_.abortText));
  abort_->setVisible(!state_.abortText.empty());
  if (!state_.visible) return;
  if (!isVisible()) {
    state_.fullScreen ? showFullScreen() : show();
    (state_.listVisible ? static_cast<QWidget*>(fillist_) : emptyPane_)->setFocus();
  }
  if (std::exchange(state_.raise, false)) {
    raise();
    activateWindow();
  }
}

void FrmFileOpen::drawList() {
  if (shownClips_ != state_.Fillist) {
    shownClips_ = state_.Fillist;
    QStringList rows;
    rows.reserve(static_cast<qsizetype>(shownClips_.size()));
    for (const auto& name : shownClips_) rows << shown(name);
    const QSignalBlocker quiet(fillist_->selectionModel());
    clips_->setStringList(rows);
  }
  const auto row = clips_->index(state_.ListIndex);
  if (row.isValid() && fillist_->currentIndex() != row) fillist_->setCurrentIndex(row);
}

void FrmFileOpen::drawDetails() {
  QString text;
  for (const auto& [name, value] : state_.details) {
    text += "<p><b>" + shown(name).toHtmlEscaped() + "</b><br>" + shown(value).toHtmlEscaped() + "</p>";
  }
  if (details_->text() != text) details_->setText(text);
}

void FrmFileOpen::closeEvent(QCloseEvent* event) {
  event->setAccepted(commands_.Exit());
  draw();
}

void FrmFileOpen::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void FrmFileOpen::dropEvent(QDropEvent* event) {
  std::vector<std::string> paths;
  for (const auto& url : event->mimeData()->urls()) {
    // A local name is taken by its bytes, which need not be UTF-8.
    paths.push_back(
        url.isLocalFile()
            ? QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString()
            : url.toString().toStdString());
  }
  event->acceptProposedAction();
  commands_.takeDropped(std::move(paths));
  draw();
}

}  // namespace kvo
