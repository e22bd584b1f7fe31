// A place of the movie and the same place in a clip of it, by what their records have of the last timing.
#pragma once

#include "core/records/movie.h"

namespace kvo {

/// What a clip has at `seconds` of the movie, in seconds of its file, within its marks. A still is counted
/// like a file that begins with it.
double placeInClip(const Movie& clip, double seconds);

/// Where the movie has a place of the clip's file; what lies outside the marks is at their end of the clip.
double placeInMovie(const Movie& clip, double seconds);

/// The picture of a place of the file, counted at the average rate.
Long pictureAt(const Movie& clip, double seconds);

}  // namespace kvo
