#include "playback/display/picture_room.h"

#include <algorithm>

namespace kvo {

Place pictureRoom(const DisplayModeState& mode, bool hasPicture, Twips toolbar, Twips width, Twips height) {
  const Place all{0, toolbar, width, std::max(height - toolbar, 0.0)};
  const auto& player = mode.player.place;
  if (!hasPicture || mode.still.Img_Still.visible || player.parked()) return all;
  const auto left = std::max(player.left, all.left);
  const auto top = std::max(player.top, all.top);
  const Place cut{left, top, std::min(player.left + player.width, width) - left,
                  std::min(player.top + player.height, all.top + all.height) - top};
  return cut.width > 0 && cut.height > 0 ? cut : all;
}

}  // namespace kvo
