// New clips out of one clip of the list, as plain records: what a copy takes of it, and what a split leaves.
#pragma once

#include "core/records/movie.h"

#include <optional>
#include <string>

namespace kvo {

/// What a copy of a clip takes of it.
enum class CopyMode {
  Exact,       ///< the same section
  Tail,        ///< from Mark-Out to the end
  EqualChunk,  ///< as long a section, from Mark-Out on, even past the end of the file
  Split,       ///< from the player's place to Mark-Out; the clip itself then ends ahead of that
};

/// Where the player stands.
struct PlayerPlace {
  double seconds = 0;
  Long frame = 0;
};

/// Why there is nothing to copy; empty where there is something. `place` is none while the player is empty,
/// which a copy to the end and a split need; a split leaves both parts a picture.
std::string whyNoCopy(const Movie& clip, CopyMode mode, const std::optional<PlayerPlace>& place);

/// The new record, where there is something to copy. It has no KeyID of its own yet.
Movie copyOf(const Movie& clip, CopyMode mode, const PlayerPlace& place);

/// What a split leaves of the clip: it ends a hundredth of a second and one frame ahead of the new one.
void endAhead(Movie& clip, const PlayerPlace& place);

}  // namespace kvo
