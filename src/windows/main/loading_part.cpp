#include "windows/main/loading_part.h"

#include "ui/made.h"
#include "ui/progress_bar.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QKeyEvent>

namespace kvo {
namespace {

constexpr QRectF kLoadingPane(59, 54, 444, 259);
constexpr QRectF kWhat(71, 151, 420, 22);
constexpr QRectF kWhich(71, 175, 420, 20);
constexpr QRectF kProgressBar(161, 207, 240, 6);
constexpr QRectF kAbort(71, 227, 420, 20);
constexpr int kPatience = 300;  // milliseconds that a work may last without being told

}  // namespace

LoadingPart::LoadingPart(ProgressState& state, std::function<void()> shownOrNot, QWidget* parent)
    : Plate(kLoadingPane, 8, parent),
      state_(state),
      shownOrNot_(std::move(shownOrNot)),
      what_(made<FaceLabel>(
          kWhat, LabelLook{.pixels = 15, .weight = QFont::DemiBold, .side = Qt::AlignHCenter}, this)),
      which_(made<FaceLabel>(
          kWhich,
          LabelLook{
              .pixels = 11.5, .colour = token("text2"), .side = Qt::AlignHCenter, .elide = Qt::ElideMiddle},
          this)),
      abort_(made<FaceLabel>(
          kAbort, LabelLook{.pixels = 11.5, .colour = token("teal"), .side = Qt::AlignHCenter}, this)),
      bar_(made<ProgressBar>(this)) {
  setGround(toColour(token("glass")));
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Progress"));
  hide();
  patience_.setSingleShot(true);
  patience_.setInterval(kPatience);
  connect(&patience_, &QTimer::timeout, [this] {
    show();
    raise();
    shownOrNot_();
  });
}

void LoadingPart::layOut(const FaceScale& scale) {
  Plate::layOut(scale);
  for (auto* label : {what_, which_, abort_}) label->layOut(scale);
  bar_->setGeometry(placedIn(*this, scale, kProgressBar));
}

void LoadingPart::draw() {
  if (state_.status.empty()) {
    patience_.stop();
    if (isHidden()) return;
    hide();
    return shownOrNot_();
  }
  const auto lines = shownLines(told(state_.status));
  what_->write(lines.value(0));
  which_->write(lines.value(1));
  abort_->write(told(state_.abortText));
  setAccessibleDescription(lines.join(", "));
  bar_->setRange(0, state_.total);
  bar_->setValue(state_.done);
  if (isHidden() && !patience_.isActive()) patience_.start();
}

void LoadingPart::abort() { state_.abort(); }

void LoadingPart::mousePressEvent(QMouseEvent* /*event*/) { abort(); }

void LoadingPart::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return abort();
    default:
      event->ignore();
  }
}

}  // namespace kvo
