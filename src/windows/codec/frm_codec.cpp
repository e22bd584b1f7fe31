#include "windows/codec/frm_codec.h"

#include "ui/made.h"
#include "ui/over_owner.h"
#include "ui/theme.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace kvo {
namespace {

constexpr int kLeastWidth = 460;  // pixels
constexpr int kCodecMargin = 16;

QLabel* value(QWidget* parent) {
  auto* label = made<QLabel>(parent);
  label->setProperty("role", "value");
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return label;
}

QLabel* caption(const QString& text, QWidget* parent) {
  auto* label = made<QLabel>(text, parent);
  label->setProperty("role", "caption");
  return label;
}

}  // namespace

FrmCodec::FrmCodec(const CodecWindowState& state, std::function<void()> hide)
    : QWidget(nullptr, Qt::Tool),
      state_(state),
      hide_(std::move(hide)),
      code_(made<QLabel>(this)),
      developer_(value(this)),
      address_(value(this)),
      notes_(value(this)) {
  setWindowTitle(tr("Codec Notes"));
  code_->setProperty("role", "title");
  code_->setTextFormat(Qt::PlainText);
  auto* rows = made<QFormLayout>();
  rows->addRow(caption(tr("Developer"), this), developer_);
  rows->addRow(caption(tr("Web address"), this), address_);
  rows->addRow(caption(tr("Notes"), this), notes_);
  auto* close = made<QPushButton>(tr("Hide Codec Notes"), this);
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the window owns its layout
  auto* all = made<QVBoxLayout>(this);
  all->setContentsMargins(kCodecMargin, kCodecMargin, kCodecMargin, kCodecMargin);
  all->setSpacing(kCodecMargin / 2);
  all->addWidget(code_);
  all->addLayout(rows);
  all->addStretch();
  all->addWidget(close, 0, Qt::AlignRight);
}

void FrmCodec::draw(QWidget* owner) {
  if (!state_.visible || owner == nullptr) return QWidget::hide();
  setMinimumWidth(themed(kLeastWidth));
  if (drawn_ != state_) {
    drawn_ = state_;
    code_->setText(QString::fromStdString(state_.code));
    developer_->setText(QString::fromStdString(state_.developer));
    address_->setText(QString::fromStdString(state_.address));
    notes_->setText(QString::fromStdString(state_.notes).remove('\r'));
    adjustSize();
  }
  if (!isVisible()) showOverOwner(*this, *owner);
}

void FrmCodec::keyPressEvent(QKeyEvent* event) {
  event->key() == Qt::Key_Escape ? static_cast<void>(close()) : QWidget::keyPressEvent(event);
}

void FrmCodec::closeEvent(QCloseEvent* event) {
  event->accept();
  hide_();
}

}  // namespace kvo
