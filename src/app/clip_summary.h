// What a clip holds, in a line for people.
#pragma once

#include "core/records/movie.h"
#include "ports/media_contents.h"

#include <string>

namespace kvo {

/// "video, MPEG-1 video, 320 x 240, 25 frames a second, 4.00 s, sound 44.1 kHz stereo". `facts` may be null,
/// as of a page, or of a file that is not there.
std::string clipSummary(const Movie& clip, const StreamFacts* facts);

}  // namespace kvo
