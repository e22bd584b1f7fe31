// What a clip is to those who play it, by its record.
#pragma once

#include "core/records/movie.h"

#include <string_view>

namespace kvo {

/// A file of a video disc, by its name.
bool isDvdFile(std::string_view path);

/// The name is an address, or is one behind its path.
bool hasAddress(const Movie& clip);

/// An address, or what is told to be without an end.
bool isStreamClip(const Movie& clip);

/// A file that an engine of ours plays: neither a stream, a still, a page nor one for another player.
bool isFileThatPlays(const Movie& clip);

}  // namespace kvo
