// What of a clip decides how it is shown.
#pragma once

#include "core/records/movie.h"
#include "playback/player.h"

#include <string>
#include <string_view>

namespace kvo {

struct ClipFacts {
  std::string extension;  ///< what follows the last full stop of the name, in capitals
  bool IsTrueRM = false;
  bool IsTrueQT4 = false;
  bool IsHTML = false;
  bool IsStream = false;
  bool IsStill = false;
  bool corona = false;      ///< it is on the Corona engine
  bool DispChange = false;  ///< it has a place of its own: Dsize, XPos, Ypos
  Twips Dsize = 0;
  Twips XPos = 0;
  Twips Ypos = 0;
  int StillW = 0;  ///< pixels
  int StillH = 0;
  int sourceWidth = 0;  ///< pixels, as the player tells; 0 for none
  int sourceHeight = 0;
};

/// Facts of a clip that `player` holds.
ClipFacts clipFacts(const Movie& clip, const Player& player);

/// Sound alone, by its name.
bool isAudioKind(const ClipFacts& clip);
/// A kind that is known and no sound.
bool isKnownOtherKind(const ClipFacts& clip);
/// Windows Media, by its name.
bool isWindowsMedia(const ClipFacts& clip);
/// A picture moves: neither sound, still nor page.
bool hasVideo(const ClipFacts& clip);

}  // namespace kvo
