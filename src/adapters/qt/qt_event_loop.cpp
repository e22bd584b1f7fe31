#include "adapters/qt/qt_event_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

namespace kvo {
namespace {

class QtTimer : public Timer {
 public:
  QtTimer(std::function<void()> tick, const std::function<void()>& afterWork) {
    QObject::connect(&timer_, &QTimer::timeout, [tick = std::move(tick), afterWork] {
      tick();
      afterWork();
    });
  }
  void start(int milliseconds) override { timer_.start(milliseconds); }
  void stop() override { timer_.stop(); }
  [[nodiscard]] bool running() const override { return timer_.isActive(); }

 private:
  QTimer timer_;
};

}  // namespace

std::unique_ptr<Timer> QtEventLoop::timer(std::function<void()> tick) {
  return std::make_unique<QtTimer>(std::move(tick), afterWork_);
}

void QtEventLoop::yield() {
  afterWork_();
  QCoreApplication::processEvents();
}

void QtEventLoop::wait(int milliseconds) {
  afterWork_();
  QTimer alarm;  // its tick is what ends the sleep when nothing else comes
  alarm.setSingleShot(true);
  alarm.start(milliseconds);
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtEventLoop::post(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
  }
  QCoreApplication::postEvent(&home_, new QEvent(QEvent::User));  // NOLINT(cppcoreguidelines-owning-memory)
}

bool QtEventLoop::Home::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  loop_.doPosted();
  return true;
}

// A piece for each event: what posts itself anew waits behind what Qt has to do. A piece that yields lets the
// next ones run ahead of its end, in their order.
void QtEventLoop::doPosted() {
  std::function<void()> piece;
  {
    const std::lock_guard lock(mutex_);
    if (posted_.empty()) return;
    piece = std::move(posted_.front());
    posted_.pop_front();
  }
  piece();
  afterWork_();
}

std::chrono::milliseconds QtEventLoop::now() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace kvo
