// The numbered profiles of Windows Media: what the engine makes of each, and what the program writes into a
// profile file for those that the engine has no table of.
#pragma once

#include "base/frame_rate.h"

#include <optional>
#include <string_view>

namespace kvo {

/// What a Windows Media file is like. Bit rates are targets.
struct EncodeProfile {
  int width = 0;  ///< pixels; 0 for sound alone, and where the movie's own size is kept
  int height = 0;
  FrameRate frameRate{};
  int videoBits = 0;  ///< a second; 0 at a constant quality
  int quality = 0;    ///< of that, 1 to 100
  int channels = 2;
  int sampleRate = 44100;
  int audioBits = 0;  ///< a second
  bool operator==(const EncodeProfile&) const = default;
};

/// What a stream of a profile file is, as its major type says.
inline constexpr std::string_view kSoundStream = "{73647561-0000-0010-8000-00AA00389B71}";
inline constexpr std::string_view kPictureStream = "{73646976-0000-0010-8000-00AA00389B71}";

/// Numbers below this are the engine's own, from here on a profile file is written.
inline constexpr int kSystemProfiles = 26;

/// One of the engine's own, 0 to 25; nothing for another number.
std::optional<EncodeProfile> systemProfile(int number);

}  // namespace kvo
