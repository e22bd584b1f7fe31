#include "adapters/qt/qt_event_loop.h"

#include <QCoreApplication>
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

void QtEventLoop::post(std::function<void()> work) {
  QMetaObject::invokeMethod(
      &home_,
      [work = std::move(work), this] {
        work();
        afterWork_();
      },
      Qt::QueuedConnection);
}

std::chrono::milliseconds QtEventLoop::now() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace kvo
