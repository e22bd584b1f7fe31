// Timers and yields by Qt.
#pragma once

#include "ports/event_loop.h"

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

namespace kvo {

class QtEventLoop : public EventLoop {
 public:
  /// `afterWork` is called behind each tick and each piece of posted work, and ahead of each yield: the time
  /// to draw what has changed.
  explicit QtEventLoop(std::function<void()> afterWork) : afterWork_(std::move(afterWork)) {}

  std::unique_ptr<Timer> timer(std::function<void()> tick) override;
  void yield() override;
  void wait(int milliseconds) override;
  void post(std::function<void()> work) override;
  [[nodiscard]] std::chrono::milliseconds now() const override;

 private:
  // Stands on the thread that made the loop, and is told there of work that has been posted.
  class Home : public QObject {
   public:
    explicit Home(QtEventLoop& loop) : loop_(loop) {}
    bool event(QEvent* event) override;

   private:
    QtEventLoop& loop_;
  };

  void doPosted();

  std::function<void()> afterWork_;
  std::mutex mutex_;
  std::deque<std::function<void()>> posted_;
  Home home_{*this};
};

}  // namespace kvo
