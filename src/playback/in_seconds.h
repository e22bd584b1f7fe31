// The place in the clip in hand in seconds, whatever unit the player counts in just now.
#pragma once

#include "playback/player.h"

namespace kvo {

/// Puts the player into another unit for as long as it lives.
class InMode {
 public:
  InMode(Player& player, DisplayMode mode) : player_(player), before_(player.PlayerGetDisplayMode()) {
    player_.PlayerSetDisplayMode(mode);
  }
  InMode(const InMode&) = delete;
  InMode& operator=(const InMode&) = delete;
  ~InMode() { player_.PlayerSetDisplayMode(before_); }

 private:
  Player& player_;
  const DisplayMode before_;
};

/// 0 while no clip is loaded.
double placeInSeconds(Player& player);

/// Goes to that place; one that `plays` goes on from there, as a seek may leave the player standing.
void goToSeconds(Player& player, double seconds, bool plays);

}  // namespace kvo
