#include "playback/positions/positions_core.h"

#include "base/text.h"

namespace kvo {

std::string PositionsCore::kind() const {
  const auto* inHand = clip();
  return inHand == nullptr ? std::string() : extensionOf(inHand->MovieName());
}

bool PositionsCore::isDVD() const {
  const auto* inHand = clip();
  return inHand != nullptr && isDvdFile(inHand->MovieName());
}

bool PositionsCore::isFileInHand() const {
  const auto* inHand = clip();
  return inHand != nullptr && isFileThatPlays(*inHand);
}

void PositionsCore::seekSeconds(double seconds) {
  const InMode mode(player, DisplayMode::Seconds);
  player.PlayerSetCurrentPosition(seconds);
  displays.showPosition();
}

void PositionsCore::seekFrame(double frame) {
  player.PlayerSetDisplayMode(DisplayMode::Frames);
  player.PlayerSetCurrentPosition(frame);
  displays.showPosition();
}

}  // namespace kvo
