// Answers wishes on a thread of its own, so that whoever wishes never waits for a file. Of the wishes that
// are made while one is answered only the last counts.
#pragma once

#include "base/guarded.h"
#include "ports/event_loop.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <utility>

namespace kvo {

template <class Wish, class Answer>
class LastWish {
 public:
  /// `find` is called on the other thread, `arrived` on the loop's, for each wish that was taken up. Where
  /// `find` throws, an answer that can be an error is that error, any other an empty one. The loop outlives
  /// the object.
  LastWish(EventLoop& loop, std::function<Answer(const Wish&)> find,
           std::function<void(const Wish&, Answer)> arrived)
      : loop_(loop), find_(std::move(find)), arrived_(std::move(arrived)) {}
  LastWish(const LastWish&) = delete;
  LastWish& operator=(const LastWish&) = delete;
  /// Waits for the answer that is being found; it does not arrive.
  ~LastWish() { *lives_ = false; }

  /// Takes the place of a wish that has not been taken up; nothing takes that one back.
  void want(std::optional<Wish> wish) {
    if (!thread_.joinable() && wish) {
      thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
    }
    {
      const std::lock_guard lock(mutex_);
      next_ = std::move(wish);
    }
    told_.notify_one();
  }

 private:
  // What a library or a full memory throws ends here: nobody would catch it on this thread.
  Answer found(const Wish& wish) const {
    try {
      return find_(wish);
    } catch (const std::exception& thrown) {
      if constexpr (std::is_constructible_v<Answer, Error>) {
        return Answer(errorOf(thrown));
      } else {
        return Answer();
      }
    }
  }

  void work(const std::stop_token& stop) {
    for (;;) {
      std::optional<Wish> wish;
      {
        std::unique_lock lock(mutex_);
        if (!told_.wait(lock, stop, [this] { return next_.has_value(); })) return;
        wish = std::exchange(next_, std::nullopt);
      }
      auto answer = std::make_shared<Answer>(found(*wish));
      loop_.post([this, lives = lives_, wish = std::move(*wish), answer] {
        if (*lives) arrived_(wish, std::move(*answer));
      });
    }
  }

  EventLoop& loop_;
  std::function<Answer(const Wish&)> find_;
  std::function<void(const Wish&, Answer)> arrived_;
  std::mutex mutex_;
  std::condition_variable_any told_;
  std::optional<Wish> next_;  // for the other thread
  std::shared_ptr<bool> lives_ = std::make_shared<bool>(true);
  std::jthread thread_;  // begins with the first wish
};

}  // namespace kvo
