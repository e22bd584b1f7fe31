#include "adapters/posix/poll_loop.h"

#include <algorithm>
#include <poll.h>
#include <sys/eventfd.h>
#include <utility>
#include <vector>

namespace kvo {

class PollLoop::PollTimer : public Timer {
 public:
  PollTimer(PollLoop& loop, std::function<void()> tick) : loop_(loop), tick_(std::move(tick)) {}
  PollTimer(const PollTimer&) = delete;
  PollTimer& operator=(const PollTimer&) = delete;
  ~PollTimer() override { PollTimer::stop(); }

  void start(int milliseconds) override {
    interval_ = std::chrono::milliseconds(milliseconds);
    due_ = loop_.now() + interval_;
    loop_.running_.insert(this);
  }
  void stop() override { loop_.running_.erase(this); }
  [[nodiscard]] bool running() const override {
    return std::find(loop_.running_.begin(), loop_.running_.end(), this) != loop_.running_.end();
  }

  [[nodiscard]] std::chrono::milliseconds due() const { return due_; }
  void tick() {
    due_ = loop_.now() + interval_;
    const auto tick = tick_;  // it may end the timer
    tick();
  }

 private:
  PollLoop& loop_;
  std::function<void()> tick_;
  std::chrono::milliseconds interval_{};
  std::chrono::milliseconds due_{};
};

PollLoop::PollLoop() : wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
PollLoop::~PollLoop() = default;

std::unique_ptr<Timer> PollLoop::timer(std::function<void()> tick) {
  return std::make_unique<PollTimer>(*this, std::move(tick));
}

void PollLoop::yield() {
  runPosted();
  runTimers();
}

void PollLoop::wait(int milliseconds) {
  const int next = untilNextTick();
  pollfd ready{wake_.get(), POLLIN, 0};
  ::poll(&ready, 1, next < 0 ? milliseconds : std::min(next, milliseconds));
  yield();
}

void PollLoop::post(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
  }
  ::eventfd_write(wake_.get(), 1);
}

std::chrono::milliseconds PollLoop::now() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

void PollLoop::run() {
  while (!std::exchange(quit_, false)) {
    pollfd ready{wake_.get(), POLLIN, 0};
    ::poll(&ready, 1, untilNextTick());
    yield();
  }
}

void PollLoop::runPosted() {
  // As many as there are now: what posts itself anew does not keep the timers waiting.
  eventfd_t ignored = 0;
  ::eventfd_read(wake_.get(), &ignored);
  std::size_t count = 0;
  {
    const std::lock_guard lock(mutex_);
    count = posted_.size();
  }
  for (; count > 0; --count) {
    std::function<void()> piece;
    {
      const std::lock_guard lock(mutex_);
      if (posted_.empty()) return;  // a piece has yielded to the ones behind it
      piece = std::move(posted_.front());
      posted_.pop_front();
    }
    piece();
  }
}

void PollLoop::runTimers() {
  const auto until = now();
  for (;;) {
    const auto next = std::min_element(running_.begin(), running_.end(),
                                       [](const auto* a, const auto* b) { return a->due() < b->due(); });
    if (next == running_.end() || (*next)->due() > until) return;
    (*next)->tick();
  }
}

int PollLoop::untilNextTick() const {
  int least = -1;
  for (const auto* timer : running_) {
    const auto left = static_cast<int>(std::max<std::int64_t>((timer->due() - now()).count(), 0));
    least = least < 0 ? left : std::min(least, left);
  }
  return least;
}

}  // namespace kvo
