// What a media file is by its name: one table of extensions for all rooms. What a file holds decides only
// between sound and picture, and only where the name leaves that open.
#pragma once

#include "ports/media_contents.h"

#include <span>
#include <string_view>

namespace kvo {

enum class MediaClass {
  Sound,  ///< sound alone; in a movie it lies under the pictures
  Video,
  Still,
};

struct MediaKind {
  std::string_view extension;  ///< what follows the last full stop, in capitals
  MediaClass mediaClass = MediaClass::Video;
  bool byNameAlone = false;  ///< what the file holds does not matter
  bool canBeInMovie = true;  ///< false for what tells of sound without holding any, as a score does
};

/// All that is known.
std::span<const MediaKind> mediaKinds();

/// The row of a name's whole extension, in any case; null for one that the table does not know.
const MediaKind* mediaKind(std::string_view name);

/// Sound alone, as far as the name tells.
bool isSoundByName(std::string_view name);

/// The class of a file. `facts` may be null, as of a file that is not there: the name tells then, and one
/// that says nothing counts as video.
MediaClass mediaClass(std::string_view name, const StreamFacts* facts);

}  // namespace kvo
