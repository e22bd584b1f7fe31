#include "playback/in_seconds.h"

#include "playback/positions/section.h"

namespace kvo {

double placeInSeconds(Player& player) {
  if (player.PlayerIsEmpty()) return 0;
  const InMode seconds(player, DisplayMode::Seconds);
  return player.PlayerGetCurrentPosition();
}

void goToSeconds(Player& player, double seconds, bool plays) {
  const InMode mode(player, DisplayMode::Seconds);
  player.PlayerSetCurrentPosition(seconds);
  if (plays) player.GlobalMediaPlay();
}

}  // namespace kvo
