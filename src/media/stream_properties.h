// What a media file says of each of its streams.
#pragma once

#include "base/result.h"
#include "ports/stream_properties.h"

#include <string>

namespace kvo::media {

/// Fails with a line that names the file when it is missing, or no media file.
Result<StreamProperties> readStreamProperties(const std::string& path);

}  // namespace kvo::media
