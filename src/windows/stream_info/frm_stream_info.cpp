#include "windows/stream_info/frm_stream_info.h"

#include "ui/made.h"
#include "ui/over_owner.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

namespace kvo {
namespace {

constexpr QSize kStreamInfo(460, 570);  // pixels
constexpr int kStreamMargin = 16;
constexpr int kBetween = 8;

}  // namespace

FrmStreamInfo::FrmStreamInfo(const StreamInfoState& state, StreamInfo& logic, std::function<void()> acted)
    : QWidget(nullptr, Qt::Tool), state_(state), logic_(logic), acted_(std::move(acted)) {
  setWindowTitle(tr("KVO5 - Stream Info"));
  auto* groups = made<QWidget>(this);
  auto* column = made<QVBoxLayout>(groups);
  column->setContentsMargins(0, 0, 0, 0);
  for (auto [group, title] :
       {std::pair(&properties_, tr("Stream Properties")), std::pair(&codecs_, tr("Stream Codecs")),
        std::pair(&connection_, tr("Connection Statistics"))}) {
    auto* box = made<QGroupBox>(title, groups);
    group->rows = made<QFormLayout>(box);
    column->addWidget(box);
  }
  column->addStretch();
  auto* scroll = made<QScrollArea>(this);
  scroll->setWidget(groups);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  options_ = made<QPushButton>(tr("&Player Stream Options"), this);
  more_ = made<QPushButton>(tr("&More"), this);
  auto* done = made<QPushButton>(tr("&Done"), this);
  more_->setCheckable(true);
  done->setProperty("kind", "primary");
  connect(options_, &QPushButton::clicked, this, [this] { offerChoices(); });
  connect(more_, &QPushButton::clicked, this, [this] {
    logic_.more();
    acted_();
  });
  connect(done, &QPushButton::clicked, this, &QWidget::close);
  auto* keys = made<QHBoxLayout>();
  keys->addWidget(options_);
  keys->addWidget(more_);
  keys->addStretch();
  keys->addWidget(done);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the window owns its layout
  auto* all = made<QVBoxLayout>(this);
  all->setContentsMargins(kStreamMargin, kStreamMargin, kStreamMargin, kStreamMargin);
  all->setSpacing(kBetween);
  all->addWidget(scroll, 1);
  all->addLayout(keys);
}

void FrmStreamInfo::draw(QWidget* owner) {
  if (!state_.visible || owner == nullptr) return hide();
  if (drawn_ != state_) {
    drawn_ = state_;
    write(properties_, state_.properties);
    write(codecs_, state_.codecs);
    write(connection_, state_.connection);
    options_->setEnabled(!state_.choices.empty());
    more_->setChecked(state_.more);
  }
  if (isVisible()) return;
  resize(themed(kStreamInfo.width()), themed(kStreamInfo.height()));
  showOverOwner(*this, *owner);
}

void FrmStreamInfo::write(Group& group, const std::vector<StreamFactLine>& lines) {
  while (group.lines.size() > lines.size()) {
    group.rows->removeRow(static_cast<int>(group.lines.size()) - 1);
    group.lines.pop_back();
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i == group.lines.size()) {
      const Line line{made<QLabel>(this), made<QLabel>(this)};
      line.caption->setProperty("role", "caption");
      line.value->setProperty("role", "value");
      line.value->setWordWrap(true);
      line.value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
      for (auto* label : {line.caption, line.value}) label->setTextFormat(Qt::PlainText);
      group.rows->addRow(line.caption, line.value);
      group.lines.push_back(line);
    }
    group.lines[i].caption->setText(told(lines[i].caption));
    group.lines[i].value->setText(QString::fromStdString(lines[i].value));
  }
}

// What of the stream is played: its sounds and its texts.
void FrmStreamInfo::offerChoices() {
  QMenu menu(this);
  for (std::size_t i = 0; i < state_.choices.size(); ++i) {
    auto* entry = menu.addAction(QString::fromStdString(state_.choices[i].text).replace('&', "&&"));
    entry->setCheckable(true);
    entry->setChecked(state_.choices[i].chosen);
    connect(entry, &QAction::triggered, this, [this, i] {
      logic_.choose(i);
      acted_();
    });
  }
  menu.exec(options_->mapToGlobal(QPoint(0, options_->height())));
}

void FrmStreamInfo::keyPressEvent(QKeyEvent* event) {
  event->key() == Qt::Key_Escape ? static_cast<void>(close()) : QWidget::keyPressEvent(event);
}

void FrmStreamInfo::closeEvent(QCloseEvent* event) {
  event->accept();
  logic_.done();
  acted_();
}

}  // namespace kvo
