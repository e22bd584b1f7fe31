// The newest picture of a player on its way from the player's thread to the program's. One that has not been
// fetched when the next comes is left out.
#pragma once

#include "ports/event_loop.h"
#include "ports/timeline_player.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace kvo {

class NewestPicture {
 public:
  using Arrived = std::function<void(std::int64_t frame, std::shared_ptr<const Bitmap> picture)>;

  /// The loop outlives whoever puts.
  explicit NewestPicture(EventLoop& loop) : loop_(loop) {}
  NewestPicture(const NewestPicture&) = delete;
  NewestPicture& operator=(const NewestPicture&) = delete;
  ~NewestPicture() { slot_->arrived = nullptr; }

  /// Hears, on the program's thread, of pictures from now on; an empty function hears nothing.
  void whenArrived(Arrived arrived) { slot_->arrived = std::move(arrived); }

  /// From any thread.
  void put(std::int64_t frame, std::shared_ptr<const Bitmap> picture) {
    const std::lock_guard lock(slot_->mutex);
    const bool onItsWay = slot_->newest.has_value();
    slot_->newest.emplace(frame, std::move(picture));
    if (onItsWay) return;
    loop_.post([slot = slot_] {
      std::unique_lock lock(slot->mutex);
      auto [number, newest] = std::move(*slot->newest);
      slot->newest.reset();
      lock.unlock();
      if (slot->arrived) slot->arrived(number, std::move(newest));
    });
  }

 private:
  struct Slot {
    std::mutex mutex;
    std::optional<std::pair<std::int64_t, std::shared_ptr<const Bitmap>>> newest;
    Arrived arrived;  // of the program's thread
  };

  EventLoop& loop_;
  std::shared_ptr<Slot> slot_ = std::make_shared<Slot>();
};

}  // namespace kvo
