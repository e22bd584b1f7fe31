#include "ui/progress_bar.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QTimerEvent>
#include <algorithm>

namespace kvo {
namespace {

constexpr int kTick = 40;           // milliseconds
constexpr double kTravel = 1600.0;  // milliseconds from end to end

}  // namespace

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
  setTextVisible(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  clock_.start();
}

void ProgressBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const QRectF slot = rect();
  const double radius = slot.height() / 2;
  painter.setBrush(toColour(token("void")));
  painter.drawRoundedRect(slot, radius, radius);
  painter.setBrush(toColour(isEnabled() ? token("teal") : token("line2")));
  auto done = slot;
  if (minimum() == maximum()) {
    if (!tick_.isActive()) tick_.start(kTick, this);
    done.setWidth(slot.width() / 3);
    const double at = static_cast<double>(clock_.elapsed() % static_cast<qint64>(kTravel)) / kTravel;
    done.moveLeft(slot.left() - done.width() + at * (slot.width() + done.width()));
    painter.setClipRect(slot);
  } else {
    tick_.stop();
    done.setWidth(slot.width() * (value() - minimum()) / (maximum() - minimum()));
  }
  if (done.width() > 0 && value() >= minimum()) painter.drawRoundedRect(done, radius, radius);
}

void ProgressBar::timerEvent(QTimerEvent* event) {
  if (event->timerId() != tick_.timerId()) return QProgressBar::timerEvent(event);
  isVisible() && minimum() == maximum() ? update() : tick_.stop();
}

}  // namespace kvo
