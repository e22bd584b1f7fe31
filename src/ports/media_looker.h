// The port to who looks into a media file ahead of the player: what it holds, and what a player would say of
// it. A file can be made to crash or hang whoever reads it; the program goes on.
#pragma once

#include "ports/media_contents.h"

#include <functional>
#include <string>
#include <string_view>

namespace kvo {

/// What a player says of a file for which it has no decoder, and of one that is locked by a license.
inline constexpr std::string_view kNoDecompressor = "Unable to download an appropriate decompressor.";
inline constexpr std::string_view kDrmProtected = "DRM Protected file";

/// What a recording says of itself; empty where it does not.
struct MediaTags {
  std::string title;
  std::string artist;
  std::string album;
  std::string genre;
  bool operator==(const MediaTags&) const = default;
};

struct MediaLook {
  StreamFacts facts{};
  MediaTags tags{};
  std::string errorText{};  ///< why it cannot be played; empty when it can
};

enum class LookEnd {
  Looked,   ///< also where the answer is an error text
  Crashed,  ///< who looked did not survive it
  Hung,     ///< no answer came in time
  Stopped,  ///< by the user
};

struct LookAnswer {
  LookEnd end = LookEnd::Looked;
  MediaLook look{};  ///< of what was looked at
};

class MediaLooker {
 public:
  MediaLooker() = default;
  MediaLooker(const MediaLooker&) = delete;
  MediaLooker& operator=(const MediaLooker&) = delete;
  virtual ~MediaLooker() = default;

  /// Looks into a file by its full path, and lets the loop run meanwhile; `stopped` is asked all the time.
  virtual LookAnswer look(const std::string& path, const std::function<bool()>& stopped) = 0;
};

}  // namespace kvo
