// The three small records beside Movie: plain data, stored with the collection (markers are not).
#pragma once

#include "core/records/field_types.h"

#include <array>
#include <string>

namespace kvo {

/// One video animation shown behind audio.
struct AudMovies {
  Integer PlayCount = 0;
  Value MoviePlayTime;
  Boolean PlayFullscreen = false;
  std::string MovieName;
  std::string Path;
  Value Playspeed;
  Value LoopStart;
  Value LoopEnd;
  Value ZoomLevel;
  Long XPos = 0;
  Long Ypos = 0;
  Long Size = 0;
  Long Height = 0;
};

/// One keyframe of one clip.
struct Keyframe {
  Value Time;  ///< seconds
  Long FrameNo = 0;
  Integer EffectNo = 0;
  std::array<Value, 8> Param;  ///< Param1 to Param8
  Single Transparency = 0;
  std::string FC;  ///< fore colour
  std::string BC;  ///< back colour
  std::string EC;  ///< extra colour
  std::string TextureFile;
  Long ClipName = 0;  ///< KeyID of the clip it belongs to
  bool operator==(const Keyframe&) const = default;
};

/// A position marker of the markers window.
struct clsMarkers {
  Value Time;
  std::string Length;
};

}  // namespace kvo
