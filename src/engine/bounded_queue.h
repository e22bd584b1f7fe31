// Hands items from one thread to another, a few at a time, so that neither runs far ahead.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace kvo::engine {

template <class Item>
class BoundedQueue {
 public:
  explicit BoundedQueue(std::size_t room) : room_(room) {}

  /// Waits for room. False, and the item is dropped, when the queue is closed.
  bool push(Item item) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return closed_ || items_.size() < room_; });
    if (closed_) return false;
    items_.push_back(std::move(item));
    changed_.notify_all();
    return true;
  }

  /// Waits for an item; nothing when the queue is closed and empty.
  std::optional<Item> pop() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return closed_ || !items_.empty(); });
    if (items_.empty()) return std::nullopt;
    std::optional<Item> item(std::move(items_.front()));
    items_.pop_front();
    changed_.notify_all();
    return item;
  }

  /// No more goes in; what is in may be taken out.
  void close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    changed_.notify_all();
  }

 private:
  const std::size_t room_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Item> items_;
  bool closed_ = false;
};

}  // namespace kvo::engine
