#include "windows/editor/hand_watch.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimerEvent>
#include <QWidget>
#include <utility>

namespace kvo {
namespace {

// Milliseconds.
constexpr int kWheelRest = 500;  // without a notch, behind which a wheel rests
constexpr int kKeyRest = 100;    // a key that is held may seem to be let go for a moment between two repeats

}  // namespace

HandWatch::HandWatch(QWidget& window, std::function<void(bool)> held)
    : window_(window), held_(std::move(held)) {
  QApplication::instance()->installEventFilter(this);
}

void HandWatch::tell(bool held) {
  rest_.stop();
  held_(held);
}

void HandWatch::pressed(int key) {
  if (std::exchange(key_, key) != key && rest_.isActive()) tell(false);
  tell(true);
}

// Ahead of what the widgets do: a click counts as done with the hand open, as it ends with a release.
bool HandWatch::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType() || static_cast<QWidget*>(watched)->window() != &window_) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
      pressed(static_cast<QKeyEvent*>(event)->key());
      break;
    case QEvent::MouseButtonPress:
      tell(true);
      break;
    case QEvent::Wheel:
      tell(true);
      rest_.start(kWheelRest, this);
      break;
    case QEvent::KeyRelease:
      if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) rest_.start(kKeyRest, this);
      break;
    case QEvent::MouseButtonRelease:
    case QEvent::WindowDeactivate:
      tell(false);
      break;
    default:
      break;
  }
  return false;
}

void HandWatch::timerEvent(QTimerEvent* event) {
  if (event->timerId() == rest_.timerId()) tell(false);
}

}  // namespace kvo
