// What a media file holds.
#pragma once

#include "base/result.h"
#include "ports/media_contents.h"

#include <string>

namespace kvo::media {

/// Streams, sizes, rates and lengths; may look through a file's end for the last picture. Fails with a line
/// that names the file when it is missing, no media file, or its picture is damaged.
Result<StreamFacts> readFacts(const std::string& path);

/// A quick look: fails with a line that names the file when it is missing or its head is no media file's.
Outcome checkInput(const std::string& path);

/// FFmpeg's own remarks on standard error, and those of its encoders, are held back from here on: what
/// matters comes as an Error. To be called ahead of the first thread.
void silenceRemarks();

}  // namespace kvo::media
