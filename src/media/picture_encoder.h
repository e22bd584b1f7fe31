// FFmpeg's encoders of pictures, each set up for what is asked of it. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "media/picture.h"
#include "media/video_encoder.h"

#include <cstdint>
#include <string>

namespace kvo::media {

/// Quantiser of H.264 that nobody tells from a finer one: pictures that share a size get no finer.
inline constexpr int kFinestOfSized = 12;

/// An encoder for `format`, open. Fails as VideoEncoder::open does.
Result<CodecHandle> openPictureEncoder(const VideoFormat& format, bool headerInFile, const std::string& name);

/// Fails for a size that the codec does not take.
Outcome checkSize(const VideoFormat& format, const std::string& name);

/// What is asked of it on its codec's own scale, or the usual.
int qualityOf(const VideoFormat& format);

/// Tells an encoder the size, rate and colours of the movie's pictures.
void describePictures(AVCodecContext& c, const VideoFormat& format, bool headerInFile);

/// The picture as a frame of that number, in the size of the movie; its bytes are shared. What the source's
/// stream said of its own frame does not hold for it. Throws std::bad_alloc.
SharedFrame frameOf(const AVCodecContext& c, const Picture& picture, std::int64_t number);
/// The encoder's, on a frame.
void takeColours(const AVCodecContext& c, AVFrame& frame);

/// Gives an encoder a frame, or null for what is held back, and takes what is ready. FFmpeg's error, or 0.
int feedEncoder(AVCodecContext& c, const AVFrame* frame, EncodedFrames& out);

/// Brings frames of one format and size to another format.
class FormatChange {
 public:
  /// The frame itself where it has the format. Throws std::bad_alloc.
  SharedFrame to(AVPixelFormat format, const SharedFrame& frame);

 private:
  ScalerHandle scaler_;
};

/// Whether pictures of this codec are told to have the weights of BT.709, whatever their height.
bool isBt709Always(VideoCodec codec);

}  // namespace kvo::media
