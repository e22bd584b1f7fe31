// The place in the clip in hand in seconds, whatever unit the player counts in just now.
#pragma once

#include "playback/player.h"

namespace kvo {

/// 0 while no clip is loaded.
double placeInSeconds(Player& player);

/// Goes to that place; one that `plays` goes on from there, as a seek may leave the player standing.
void goToSeconds(Player& player, double seconds, bool plays);

}  // namespace kvo
