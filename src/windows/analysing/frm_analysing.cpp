#include "windows/analysing/frm_analysing.h"

#include "ui/made.h"
#include "ui/over_owner.h"
#include "ui/painting.h"
#include "ui/pictures.h"
#include "ui/progress_bar.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPaintEvent>
#include <QPushButton>

namespace kvo {
namespace {

constexpr int kAnalysingWidth = 360;  // pixels
constexpr int kAnalysingMargin = 20;
constexpr QSize kFilmSize(320, 180);
constexpr int kFilmGap = 12;
constexpr int kSignSide = 48;

}  // namespace

FrmAnalysing::FrmAnalysing(const AnalysingState& state, std::function<void()> stop)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      state_(state),
      stop_(std::move(stop)),
      count_(made<QLabel>(this)),
      file_(made<QLabel>(this)),
      bar_(made<ProgressBar>(this)),
      stopKey_(made<QPushButton>(tr("Stop"), this)) {
  setAttribute(Qt::WA_StyledBackground);
  setWindowTitle(tr("KVO5 - Analysing"));
  count_->setProperty("role", "title");
  file_->setProperty("role", "hint");
  bar_->setAccessibleName(tr("Clips looked into"));
  stopKey_->setToolTip(tr("Open the editor without waiting for the other clips"));
  stopKey_->setFocusPolicy(Qt::StrongFocus);
  connect(stopKey_, &QPushButton::clicked, [this] { stop_(); });
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the window owns its layout
  auto* all = made<QGridLayout>(this);
  all->setContentsMargins(kAnalysingMargin, kAnalysingMargin, kAnalysingMargin, kAnalysingMargin);
  all->setRowMinimumHeight(0, kFilmSize.height() + kFilmGap);
  all->addWidget(count_, 1, 0);
  all->addWidget(stopKey_, 1, 1, 2, 1, Qt::AlignVCenter);
  all->addWidget(file_, 2, 0);
  all->addWidget(bar_, 3, 0, 1, 2);
  all->setColumnStretch(0, 1);
}

void FrmAnalysing::draw(QWidget* owner) {
  if (!state_.visible || owner == nullptr) return hide();
  setFixedWidth(themed(kAnalysingWidth));
  dynamic_cast<QGridLayout&>(*layout()).setRowMinimumHeight(0, themed(kFilmSize.height() + kFilmGap));
  bar_->setRange(0, state_.total);
  bar_->setValue(state_.done);
  count_->setText(tr("Analysing Clip %1 of %2").arg(state_.clip()).arg(state_.total));
  const auto name = shown(state_.file);
  constexpr int kNameWidth = kFilmSize.width() * 2 / 3;
  file_->setText(file_->fontMetrics().elidedText(name, Qt::ElideMiddle, themed(kNameWidth)));
  file_->setToolTip(plainTip(name));
  if (std::exchange(drawn_, state_.picture) != state_.picture) update(picturePlace());
  if (!isVisible()) showOverOwner(*this, *owner);
}

QRect FrmAnalysing::picturePlace() const {
  const QSize size(themed(kFilmSize.width()), themed(kFilmSize.height()));
  return {QPoint((width() - size.width()) / 2, themed(kAnalysingMargin)), size};
}

void FrmAnalysing::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  const auto place = picturePlace();
  if (!event->rect().intersects(place)) return;  // a text below it
  QPainter painter(this);
  const Painting kept(painter);
  painter.fillRect(place, toColour(token("void")));
  if (const auto& film = state_.picture; film != nullptr) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, imageOver(*film));
    return;
  }
  const auto sign = iconPicture("film", token("teal"), themed(kSignSide), devicePixelRatio());
  painter.drawPixmap(place.center() - QPoint(themed(kSignSide), themed(kSignSide)) / 2, sign);
}

void FrmAnalysing::keyPressEvent(QKeyEvent* event) {
  event->key() == Qt::Key_Escape ? stop_() : QWidget::keyPressEvent(event);
}

void FrmAnalysing::closeEvent(QCloseEvent* event) {
  event->ignore();
  stop_();
}

}  // namespace kvo
