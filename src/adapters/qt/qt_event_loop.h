// Timers and yields by Qt.
#pragma once

#include "ports/event_loop.h"

#include <QObject>

namespace kvo {

class QtEventLoop : public EventLoop {
 public:
  /// `afterWork` is called behind each tick and each piece of posted work, and ahead of each yield: the time
  /// to draw what has changed.
  explicit QtEventLoop(std::function<void()> afterWork) : afterWork_(std::move(afterWork)) {}

  std::unique_ptr<Timer> timer(std::function<void()> tick) override;
  void yield() override;
  void post(std::function<void()> work) override;
  [[nodiscard]] std::chrono::milliseconds now() const override;

 private:
  std::function<void()> afterWork_;
  QObject home_;  // of the thread that made the loop
};

}  // namespace kvo
