// The event loop of a program without a window.
#pragma once

#include "adapters/posix/descriptor.h"
#include "ports/event_loop.h"

#include <deque>
#include <functional>
#include <mutex>
#include <set>

namespace kvo {

class PollLoop : public EventLoop {
 public:
  PollLoop();
  PollLoop(const PollLoop&) = delete;
  PollLoop& operator=(const PollLoop&) = delete;
  ~PollLoop() override;

  std::unique_ptr<Timer> timer(std::function<void()> tick) override;
  void yield() override;
  void wait(int milliseconds) override;
  void post(std::function<void()> work) override;
  [[nodiscard]] std::chrono::milliseconds now() const override;

  /// Does what comes, and sleeps in between, until quit() is called by what it does. Where that was called
  /// ahead of it, it ends at once.
  void run();
  void quit() { quit_ = true; }

 private:
  class PollTimer;

  void runPosted();
  void runTimers();
  [[nodiscard]] int untilNextTick() const;  // milliseconds; below 0 when nothing is to tick

  std::mutex mutex_;
  std::deque<std::function<void()>> posted_;
  Descriptor wake_;  // can be read while there is posted work
  std::set<PollTimer*> running_;
  bool quit_ = false;
};

}  // namespace kvo
