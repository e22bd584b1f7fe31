// The clips of an audio CD that carries files as well.
#pragma once

#include "core/records/movie.h"
#include "ports/disc_contents.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// The play speed that marks a clip as a track of an extended CD.
inline constexpr Single kExtendedCdSpeed = 999;

/// "Track07.cda"
std::string cdTrackName(int track);

/// A clip for each track of sound of the table. Each has the length up to the next track.
std::vector<Movie> PopulateFromExtendedCD(const DiscTable& table, const std::string& folder);

/// A track of a CD takes its length from the 44 bytes of its file, as a system shows it on the disc; other
/// bytes tell of none.
void takeCdFile(Movie& clip, std::string_view bytes);

}  // namespace kvo
