// What a media file holds.
#pragma once

#include "base/result.h"
#include "platform/frame_source.h"

#include <string>

namespace kvo::media {

/// Fails with a line that names the file when it is missing or no media file.
Result<StreamFacts> readFacts(const std::string& path);

}  // namespace kvo::media
