// FFmpeg's handles with owners, and its errors as lines. For this room only.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libavutil/intreadwrite.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

#include "base/frame_rate.h"
#include "base/result.h"

#include <array>
#include <memory>
#include <new>
#include <string>

namespace kvo::media {

struct FreeFormat {
  void operator()(AVFormatContext* c) const { avformat_close_input(&c); }
};
struct FreeCodec {
  void operator()(AVCodecContext* c) const { avcodec_free_context(&c); }
};
struct FreePacket {
  void operator()(AVPacket* p) const { av_packet_free(&p); }
};
struct FreeScaler {
  void operator()(SwsContext* s) const { sws_freeContext(s); }
};
struct FreeResampler {
  void operator()(SwrContext* s) const { swr_free(&s); }
};
using FormatHandle = std::unique_ptr<AVFormatContext, FreeFormat>;
using CodecHandle = std::unique_ptr<AVCodecContext, FreeCodec>;
using PacketHandle = std::unique_ptr<AVPacket, FreePacket>;
using ScalerHandle = std::unique_ptr<SwsContext, FreeScaler>;
using ResamplerHandle = std::unique_ptr<SwrContext, FreeResampler>;

/// Throws std::bad_alloc.
inline PacketHandle newPacket() {
  PacketHandle packet(av_packet_alloc());
  if (!packet) throw std::bad_alloc();
  return packet;
}

/// The time of one frame.
inline AVRational frameTimeOf(const FrameRate& rate) { return {rate.denominator(), rate.numerator()}; }

/// "cannot open /a/b.avi: Invalid data found when processing input"
inline Error ffmpegError(const std::string& what, int code) {
  std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
  av_strerror(code, text.data(), text.size());
  return {what + ": " + text.data()};
}

/// Opens a local file and reads its head. The name is never taken for an address or a pattern, and nothing
/// that the file refers to is opened.
Result<FormatHandle> openHead(const std::string& path);

/// As openHead, and finds out about the streams.
Result<FormatHandle> openInput(const std::string& path);

/// A decoder for one stream of `format`; `threads` of 0 lets the decoder choose.
Result<CodecHandle> openDecoder(AVFormatContext& format, int stream, const std::string& path, int threads);

}  // namespace kvo::media
