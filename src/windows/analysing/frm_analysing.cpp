#include "windows/analysing/frm_analysing.h"

#include "ui/made.h"
#include "ui/over_owner.h"
#include "ui/progress_bar.h"
#include "ui/theme.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kvo {
namespace {

constexpr int kAnalysingWidth = 360;  // pixels
constexpr int kAnalysingMargin = 20;

}  // namespace

FrmAnalysing::FrmAnalysing(const AnalysingState& state)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      state_(state),
      count_(made<QLabel>(this)),
      bar_(made<ProgressBar>(this)) {
  setAttribute(Qt::WA_StyledBackground);
  setWindowTitle(tr("KVO5 - Analysing"));
  auto* title = made<QLabel>(tr("Looking into the clips"), this);
  title->setProperty("role", "title");
  count_->setProperty("role", "caption");
  bar_->setAccessibleName(tr("Clips looked into"));
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the window owns its layout
  auto* all = made<QVBoxLayout>(this);
  all->setContentsMargins(kAnalysingMargin, kAnalysingMargin, kAnalysingMargin, kAnalysingMargin);
  all->addWidget(title);
  all->addWidget(count_);
  all->addWidget(bar_);
}

void FrmAnalysing::draw(QWidget* owner) {
  if (!state_.visible || owner == nullptr) return hide();
  setFixedWidth(themed(kAnalysingWidth));
  bar_->setRange(0, state_.total);
  bar_->setValue(state_.done);
  count_->setText(tr("%1 of %2").arg(state_.done).arg(state_.total));
  if (!isVisible()) showOverOwner(*this, *owner);
}

}  // namespace kvo
