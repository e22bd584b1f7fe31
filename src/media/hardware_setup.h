// FFmpeg's encoders of a device, set up for what is asked of them. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "media/video_encoder.h"

#include <string_view>

namespace kvo::media {

/// The encoder of that name (hardwareNames()), not open yet and without the device's own frames. It has what
/// that of the software has: profile, key frames, colours, rate, and a quantiser in the place of its quality.
/// Fails where FFmpeg has no such encoder here, or that does not know what it is told.
Result<CodecHandle> setUpHardware(std::string_view name, const VideoFormat& format, bool headerInFile);

}  // namespace kvo::media
