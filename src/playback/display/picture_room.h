// Where the picture stands in a Free Zoom window.
#pragma once

#include "playback/display/display_mode_state.h"

namespace kvo {

/// Of a window whose inside is `width` by `height` twips, below a toolbar of that height: where the player
/// was placed, as far as the window reaches. All of the window below the toolbar for a still, for the sign of
/// what has no picture, and for a player that is parked or not in sight.
[[nodiscard]] Place pictureRoom(const DisplayModeState& mode, bool hasPicture, Twips toolbar, Twips width,
                                Twips height);

}  // namespace kvo
