// What adding asks of the player, answered by those who make the collection play.
#pragma once

#include "intake/load_check.h"
#include "playback/play_timers.h"
#include "playback/player.h"

#include <array>
#include <functional>
#include <string>
#include <utility>

namespace kvo {

class TransportLoadCheck : public LoadCheck {
 public:
  /// `EndAnim` ends an animation behind sound. All outlive the object.
  TransportLoadCheck(PlayTimers& timers, const Player& player, std::function<void()> EndAnim)
      : timers_{&timers.StillTimer, &timers.Timer1, &timers.Timer4, &timers.Timer6},
        player_(player),
        EndAnim_(std::move(EndAnim)) {}

  void beforeAdding() override {
    for (std::size_t i = 0; i < timers_.size(); ++i) {
      ran_[i] = timers_[i]->enabled();
      timers_[i]->stop();
    }
    EndAnim_();
  }
  void nothingAdded() override {
    for (std::size_t i = 0; i < timers_.size(); ++i) {
      if (ran_[i]) timers_[i]->start();
    }
  }
  [[nodiscard]] std::string PlayerGetFileName() const override { return player_.PlayerGetFileName(); }

 private:
  std::array<PlayTimer*, 4> timers_;
  std::array<bool, 4> ran_{};
  const Player& player_;
  std::function<void()> EndAnim_;
};

}  // namespace kvo
