// Time that moves only when told, and work that comes home from other threads when it moves.
#pragma once

#include "ports/event_loop.h"

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

namespace kvo::test {

class VirtualLoop : public EventLoop {
 public:
  std::function<void()> onYield = [] {};
  int home = 0;  ///< pieces of posted work that have been done

  std::unique_ptr<Timer> timer(std::function<void()> tick) override {
    return std::make_unique<VirtualTimer>(*this, std::move(tick));
  }
  void yield() override {
    runPosted();
    onYield();
  }
  void wait(int milliseconds) override {
    yield();
    advance(milliseconds);
  }
  void post(std::function<void()> work) override {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
    told_.notify_all();
  }
  [[nodiscard]] std::chrono::milliseconds now() const override { return std::chrono::milliseconds(now_); }

  /// Waits for work from another thread and has it done; false when none has come for ten seconds.
  bool workComesHome() {
    {
      std::unique_lock lock(mutex_);
      if (!told_.wait_for(lock, std::chrono::seconds(10), [this] { return !posted_.empty(); })) return false;
    }
    runPosted();
    return true;
  }

  /// Lets `milliseconds` pass; timers tick in the order of their times.
  void advance(int milliseconds) {
    const int end = now_ + milliseconds;
    for (;;) {
      runPosted();
      const auto next = std::min_element(running_.begin(), running_.end(),
                                         [](const auto* a, const auto* b) { return a->due < b->due; });
      if (next == running_.end() || (*next)->due > end) break;
      auto* timer = *next;
      now_ = timer->due;
      timer->due += timer->interval;
      timer->tick();
    }
    now_ = end;
  }

 private:
  struct VirtualTimer : Timer {
    VirtualTimer(VirtualLoop& l, std::function<void()> t) : loop(l), tick(std::move(t)) {}
    ~VirtualTimer() override { loop.running_.erase(this); }
    void start(int milliseconds) override {
      interval = milliseconds;
      due = loop.now_ + milliseconds;
      loop.running_.insert(this);
    }
    void stop() override { loop.running_.erase(this); }
    [[nodiscard]] bool running() const override {
      return loop.running_.contains(const_cast<VirtualTimer*>(this));
    }

    VirtualLoop& loop;
    std::function<void()> tick;
    int interval = 0;
    int due = 0;
  };

  void runPosted() {
    std::vector<std::function<void()>> work;
    {
      const std::lock_guard lock(mutex_);
      work.swap(posted_);
    }
    for (const auto& piece : work) {
      piece();
      ++home;
    }
  }

  int now_ = 0;
  std::mutex mutex_;
  std::condition_variable told_;
  std::vector<std::function<void()>> posted_;
  std::set<VirtualTimer*> running_;
};

}  // namespace kvo::test
