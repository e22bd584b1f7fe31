// Timers and yields by Qt.
#pragma once

#include "platform/event_loop.h"

namespace kvo {

class QtEventLoop : public EventLoop {
 public:
  /// `afterWork` is called behind each tick and ahead of each yield: the time to draw what has changed.
  explicit QtEventLoop(std::function<void()> afterWork) : afterWork_(std::move(afterWork)) {}

  std::unique_ptr<Timer> timer(std::function<void()> tick) override;
  void yield() override;

 private:
  std::function<void()> afterWork_;
};

}  // namespace kvo
