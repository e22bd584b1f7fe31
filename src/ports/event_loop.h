// The port to time: timers that tick on the one thread of the program, yields to them inside long work, and
// the way home for work from other threads.
#pragma once

#include <chrono>
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

  /// Lets what is waiting run: ticks, drawing, clicks, posted work.
  virtual void yield() = 0;

  /// As yield; where nothing is waiting, sleeps until something comes, `milliseconds` at most. For work that
  /// cannot go on before it has been answered.
  virtual void wait(int milliseconds) = 0;

  /// Has `work` done on the program's thread, in the order of posting, at its next yield or when it waits.
  /// From any thread. What is still waiting when the loop ends is not done.
  virtual void post(std::function<void()> work) = 0;

  /// Time since some instant; never goes back, whatever is done to the clock of the day.
  [[nodiscard]] virtual std::chrono::milliseconds now() const = 0;
};

}  // namespace kvo
