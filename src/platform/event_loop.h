// The port to time: timers that tick on the one thread of the program, and yields to them inside long work.
#pragma once

#include <functional>
#include <memory>

namespace kvo {

class Timer {
 public:
  Timer() = default;
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  virtual ~Timer() = default;

  /// Ticks every `milliseconds` from now on.
  virtual void start(int milliseconds) = 0;
  virtual void stop() = 0;
  [[nodiscard]] virtual bool running() const = 0;
};

class EventLoop {
 public:
  EventLoop() = default;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  virtual ~EventLoop() = default;

  /// A timer that stands still until it is started. It ends with the object.
  virtual std::unique_ptr<Timer> timer(std::function<void()> tick) = 0;

  /// Lets what is waiting run: ticks, drawing, clicks.
  virtual void yield() = 0;
};

}  // namespace kvo
