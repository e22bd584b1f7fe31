// What an open file holds. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "ports/media_contents.h"

#include <string>

namespace kvo::media {

/// As readFacts(), of a file that is open.
Result<StreamFacts> factsOf(AVFormatContext& format, const std::string& path);

/// Seconds that a file lasts as a whole; 0 when it does not tell. Bare sound is read through for it, so
/// `format` stands at its end behind this.
double wholeLength(AVFormatContext& format);

}  // namespace kvo::media
