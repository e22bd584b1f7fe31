#include "windows/position/fading_window.h"

#include "ui/level_lights.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPropertyAnimation>
#include <QWheelEvent>
#include <algorithm>

namespace kvo {
namespace {

constexpr QSize kFading(168, 60);
constexpr QSize kFadingCorner(24, 24);
constexpr int kFadeOut = 200;  // milliseconds
constexpr double kLightPitch = 13.4;
constexpr QRectF kLightsPlace(18, 36, 132, 11);

}  // namespace

FadingWindow::FadingWindow(const FadingDisplay& state, std::function<void(int)> set)
    : Floating(kFading, kFadingCorner, Qt::ToolTip),
      state_(state),
      set_(std::move(set)),
      title_(made<QLabel>(this)),
      value_(made<QLabel>(this)),
      lights_(made<LevelLights>(11, kLightPitch, this)),
      fade_(made<QPropertyAnimation>(this, "windowOpacity", this)) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_TransparentForMouseEvents, !set_);
  lights_->setAttribute(Qt::WA_TransparentForMouseEvents);
  value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value_->setProperty("role", "number");
  fade_->setDuration(kFadeOut);
  fade_->setEndValue(0.0);
  layOut();
}

void FadingWindow::layOut() {
  title_->setGeometry(at(18, 10, 90, 20));
  value_->setGeometry(at(100, 10, 50, 20));
  lights_->setGeometry(at(kLightsPlace.x(), kLightsPlace.y(), kLightsPlace.width(), kLightsPlace.height()));
}

void FadingWindow::draw(QWidget* owner, const QPointF& part) {
  if (!state_.visible) return hide();
  title_->setText(told(state_.title));
  value_->setText(told(state_.value));
  lights_->setLevel(state_.lights);
  setAccessibleName(title_->text() + " " + value_->text());
  if (!state_.faded) {
    fade_->stop();
    setWindowOpacity(1);
    if (!isVisible()) showOver(owner, part);
  } else if (fade_->state() != QAbstractAnimation::Running && windowOpacity() == 1) {
    fade_->start();
  }
}

void FadingWindow::mousePressEvent(QMouseEvent* event) {
  const auto row = at(0, kLightsPlace.top() - 6, kLightsPlace.right() + 18, kLightsPlace.height() + 12);
  if (!set_ || event->button() != Qt::LeftButton || !row.contains(event->position().toPoint())) return;
  const double light = (event->position().x() / scale() - kLightsPlace.left()) / kLightPitch;
  set_(std::clamp(static_cast<int>(light + 1), 0, LevelLights::kLights));
}

void FadingWindow::wheelEvent(QWheelEvent* event) {
  if (set_) set_(std::clamp(state_.lights + (event->angleDelta().y() > 0 ? 1 : -1), 0, LevelLights::kLights));
}

}  // namespace kvo
