// What a media file holds.
#pragma once

#include "base/result.h"
#include "ports/frame_source.h"

#include <string>

namespace kvo::media {

/// Fails with a line that names the file when it is missing or no media file.
Result<StreamFacts> readFacts(const std::string& path);

/// A quick look: fails with a line that names the file when it is missing or its head is no media file's.
Outcome checkInput(const std::string& path);

/// FFmpeg's own remarks on standard error are held back from here on: what matters comes as an Error.
void silenceRemarks();

}  // namespace kvo::media
