// What an open file holds. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "ports/frame_source.h"

#include <string>

namespace kvo::media {

/// As readFacts(), of a file that is open.
Result<StreamFacts> factsOf(AVFormatContext& format, const std::string& path);

}  // namespace kvo::media
