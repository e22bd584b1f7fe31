// FFmpeg's encoders of pictures, each set up for what is asked of it. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "media/video_encoder.h"

#include <string>

namespace kvo::media {

/// Quantiser of H.264 that nobody tells from a finer one: pictures that share a size get no finer.
inline constexpr int kFinestOfSized = 12;

/// An encoder for `format`, open. Fails as VideoEncoder::open does.
Result<CodecHandle> openPictureEncoder(const VideoFormat& format, bool headerInFile, const std::string& name);

/// Whether pictures of this codec are told to have the weights of BT.709, whatever their height.
bool isBt709Always(VideoCodec codec);

}  // namespace kvo::media
