// The sound of a media file as a WAV.
#pragma once

#include "base/result.h"
#include "ports/files.h"

#include <functional>
#include <string>

namespace kvo::media {

/// Writes all sound of `source` as `wav`, 44.1 kHz stereo of 16 bits, in one durable step. `goOn` is called
/// for each second of it; false ends the work, and that is a failure. Fails with a line that names the file
/// at fault, and then nothing has changed under the name of `wav`.
Outcome stripWav(Files& files, const std::string& source, const std::string& wav,
                 const std::function<bool()>& goOn);

}  // namespace kvo::media
