#include "windows/main/progress_part.h"

#include "windows/main/widgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace kvo {

ProgressPart::ProgressPart(ProgressState& state, QWidget* parent)
    : QWidget(parent), state_(state), status_(made<QLabel>(this)), abort_(made<QPushButton>(this)) {
  abort_->setFlat(true);
  connect(abort_, &QPushButton::clicked, [this] { state_.abortClicked = true; });
  auto* row = made<QHBoxLayout>(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(status_, 1);
  row->addWidget(abort_);
}

void ProgressPart::draw() {
  status_->setText(shown(state_.status).replace("\r\n", " "));
  abort_->setText(shown(state_.abortText));
  abort_->setVisible(!state_.abortText.empty());
}

}  // namespace kvo
