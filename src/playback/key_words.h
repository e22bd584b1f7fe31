// The words that the keys of the main window are told by.
#pragma once

namespace kvo {

/// The first 23 draw one picture each, in the order of their table; the last two speak of several keys.
enum class KeyWord {
  PlayOff,
  PlayOn,
  PauseOff,
  PauseOn,
  Volume,
  FFOn,  ///< fast forward; "held" while a mouse button is down on it
  FFOnHeld,
  FFOff,
  RROn,  ///< fast rewind
  RROnHeld,
  RROff,
  FOn,  ///< one frame on
  FOnHeld,
  FOff,
  ROn,  ///< one frame back
  ROnHeld,
  ROff,
  Speeds,
  Size,
  PlayAll,
  PlayAllHover,
  Minimise,
  Mini,
  AllOff,   ///< neither plays nor pauses
  Rebuild,  ///< the play group is drawn again as it was
};

/// What the play group shows.
enum class PlayGroup { NotDrawn, Nothing, Playing, Paused };

}  // namespace kvo
