// What a media file says of its streams as the text that the probe's reader looks for its phrases in, and as
// JSON for people and their scripts.
#pragma once

#include "base/result.h"
#include "ports/stream_properties.h"

#include <string>

namespace kvo {

/// The report: fixed phrases, numbers and FFmpeg's own names, and no word of the file's, so that no title can
/// be taken for a phrase. "KVO_FAIL" for a file that could not be opened. Lines end in LF.
std::string propertyReport(const Result<StreamProperties>& properties);

/// One object with all that is known, and no field for what is not; "error" in it tells why the file could
/// not be opened. What is no UTF-8 in it is read as Windows-1252.
std::string propertyJson(const std::string& path, const Result<StreamProperties>& properties);

}  // namespace kvo
