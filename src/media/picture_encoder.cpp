#include "media/picture_encoder.h"

#include "vocabulary/movie_presets.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace kvo::media {
namespace {

constexpr int kGroupOfPictures = 12;
constexpr int kCoarsest = 31;        // quantiser of MPEG-4
constexpr double kLongestGroup = 5;  // seconds from one key frame to the next

struct PictureCodec {
  const char* encoder;
  const char* title;
  AVPixelFormat format;
  int quality;  // the usual one, on the codec's scale
};

const PictureCodec& codecOf(VideoCodec codec) {
  static constexpr std::array<PictureCodec, 8> kCodecs = {{
      {"", "", AV_PIX_FMT_NONE, 0},
      {"mpeg4", "MPEG-4", AV_PIX_FMT_YUV420P, 0},
      {"wmv2", "Windows Media Video", AV_PIX_FMT_YUV420P, 0},
      {"libx264", "H.264", AV_PIX_FMT_YUV420P, 20},
      {"libvpx-vp9", "VP9", AV_PIX_FMT_YUV420P, 31},
      {"libsvtav1", "AV1", AV_PIX_FMT_YUV420P, 32},
      {"prores_ks", "ProRes", AV_PIX_FMT_YUV422P10, 0},
      {"gif", "GIF", AV_PIX_FMT_PAL8, 0},
  }};
  return kCodecs.at(static_cast<std::size_t>(codec));
}

void setUpMpeg4(AVCodecContext& c, const VideoFormat& format) {
  // MPEG-4 counts the ticks of a second in 16 bits. A frame's number is its time here, whatever the unit.
  const auto time = frameTimeOf(format.frameRate);
  av_reduce(&c.time_base.num, &c.time_base.den, time.num, time.den, 65535);
  c.framerate = av_inv_q(c.time_base);
  c.gop_size = kGroupOfPictures;
  c.max_b_frames = 0;
  if (format.bitRate > 0) {
    c.bit_rate = format.bitRate;
    c.bit_rate_tolerance = format.bitRate / 10;
    c.qmin = 2;
    c.qmax = kCoarsest;
  } else {
    c.flags |= AV_CODEC_FLAG_QSCALE;
    c.global_quality = FF_QP2LAMBDA * format.quantiser;
  }
}

// What an encoder alone understands.
class Options {
 public:
  Options() = default;
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;
  ~Options() { av_dict_free(&entries_); }

  void set(const char* name, const std::string& value) { av_dict_set(&entries_, name, value.c_str(), 0); }
  void set(const char* name, int value) { set(name, std::to_string(value)); }
  AVDictionary** entries() { return &entries_; }

 private:
  AVDictionary* entries_ = nullptr;
};

void setUpH264(AVCodecContext& c, const VideoFormat& format, Options& options) {
  options.set("preset", std::string(effortWords()[static_cast<std::size_t>(format.effort)]));
  if (format.pass == Pass::Only) {
    options.set("crf", qualityOf(format));
    return;
  }
  c.bit_rate = format.bitRate;
  c.qmin = kFinestOfSized;
  c.flags |= format.pass == Pass::First ? AV_CODEC_FLAG_PASS1 : AV_CODEC_FLAG_PASS2;
  options.set("stats", format.notes);
}

void setUpVp9(AVCodecContext& c, const VideoFormat& format, Options& options) {
  c.bit_rate = 0;
  options.set("crf", qualityOf(format));
  options.set("deadline", "good");
  options.set("cpu-used", std::clamp(7 - format.effort, 0, 5));
  options.set("lag-in-frames", 25);
  options.set("auto-alt-ref", 1);
  // Columns that can be made side by side, and read so; each is at least 256 pixels wide.
  options.set("tile-columns", format.width >= 1024 ? 2 : format.width >= 512 ? 1 : 0);
  c.gop_size = static_cast<int>(format.frameRate.frameFrom(kLongestGroup));
}

void setUpAv1(AVCodecContext& c, const VideoFormat& format, Options& options) {
  options.set("crf", qualityOf(format));
  options.set("preset", std::clamp(12 - format.effort, 4, 12));
  c.gop_size = static_cast<int>(format.frameRate.frameFrom(kLongestGroup));
}

void setUp(AVCodecContext& c, const VideoFormat& format, Options& options) {
  c.thread_count = format.threads;
  switch (format.codec) {
    case VideoCodec::Raw:
      break;
    case VideoCodec::Mpeg4:
    case VideoCodec::Wmv2:
      setUpMpeg4(c, format);
      break;
    case VideoCodec::H264:
      setUpH264(c, format, options);
      break;
    case VideoCodec::Vp9:
      setUpVp9(c, format, options);
      break;
    case VideoCodec::Av1:
      setUpAv1(c, format, options);
      break;
    case VideoCodec::ProRes:
      options.set("profile", "hq");
      options.set("vendor", "apl0");
      break;
    case VideoCodec::Gif:
      break;
  }
}

void tagBt709(AVCodecContext& c) {
  c.color_primaries = AVCOL_PRI_BT709;
  c.color_trc = AVCOL_TRC_BT709;
  c.colorspace = AVCOL_SPC_BT709;
  c.color_range = AVCOL_RANGE_MPEG;
  c.chroma_sample_location = AVCHROMA_LOC_LEFT;
}

}  // namespace

Outcome checkSize(const VideoFormat& format, const std::string& name) {
  const auto& codec = codecOf(format.codec);
  const auto odd = [&](const char* side, int pixels) {
    return Error{"cannot write " + name + ": its " + side + " of " + std::to_string(pixels) +
                 " is odd, and " + codec.title + " has even " + side + "s only"};
  };
  const auto even = evenSidesOf(format.codec);
  if (even.width && format.width % 2 != 0) return odd("width", format.width);
  if (even.height && format.height % 2 != 0) return odd("height", format.height);
  return {};
}

int qualityOf(const VideoFormat& format) {
  return format.quality > 0 ? format.quality : codecOf(format.codec).quality;
}

void describePictures(AVCodecContext& c, const VideoFormat& format, bool headerInFile) {
  c.width = format.width;
  c.height = format.height;
  c.time_base = frameTimeOf(format.frameRate);
  c.framerate = av_inv_q(c.time_base);
  if (isBt709Always(format.codec)) tagBt709(c);
  if (headerInFile) c.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
}

SharedFrame frameOf(const AVCodecContext& c, const Picture& picture, std::int64_t number) {
  auto frame = newFrame();
  if (av_frame_ref(frame.get(), picture.frame()) < 0) throw std::bad_alloc();
  frame->width = c.width;
  frame->height = c.height;
  frame->pts = number;
  frame->pict_type = AV_PICTURE_TYPE_NONE;
  frame->quality = c.global_quality;
  frame->sample_aspect_ratio = {0, 1};
  return frame;
}

void takeColours(const AVCodecContext& c, AVFrame& frame) {
  frame.color_primaries = c.color_primaries;
  frame.color_trc = c.color_trc;
  frame.colorspace = c.colorspace;
  frame.color_range = c.color_range;
}

int feedEncoder(AVCodecContext& c, const AVFrame* frame, EncodedFrames& out) {
  if (const int sent = avcodec_send_frame(&c, frame); sent < 0) return sent;
  for (;;) {
    auto packet = newPacket();
    const int got = avcodec_receive_packet(&c, packet.get());
    if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) return 0;
    if (got < 0) return got;
    packet->duration = 1;
    // The pictures of AV1 stand in the order in which they are seen.
    if (c.codec_id == AV_CODEC_ID_AV1) packet->dts = packet->pts;
    out.emplace_back(std::move(packet));
  }
}

SharedFrame FormatChange::to(AVPixelFormat format, const SharedFrame& frame) {
  if (frame->format == format) return frame;
  if (!scaler_) {
    scaler_.reset(sws_getContext(frame->width, frame->height, static_cast<AVPixelFormat>(frame->format),
                                 frame->width, frame->height, format, SWS_BICUBIC | SWS_ACCURATE_RND, nullptr,
                                 nullptr, nullptr));
    if (!scaler_) throw std::bad_alloc();
  }
  auto made = newFrame(format, frame->width, frame->height);
  sws_scale(scaler_.get(), frame->data, frame->linesize, 0, frame->height, made->data, made->linesize);
  made->pts = frame->pts;
  return made;
}

bool isBt709Always(VideoCodec codec) {
  return codec == VideoCodec::H264 || codec == VideoCodec::Vp9 || codec == VideoCodec::Av1 ||
         codec == VideoCodec::ProRes;
}

Result<CodecHandle> openPictureEncoder(const VideoFormat& format, bool headerInFile,
                                       const std::string& name) {
  if (auto fits = checkSize(format, name); !fits) return fits.error();
  const auto& traits = codecOf(format.codec);
  const auto* codec = avcodec_find_encoder_by_name(traits.encoder);
  if (codec == nullptr) {
    return Error{"cannot write " + name + ": FFmpeg has no encoder for " + traits.title + " here (" +
                 traits.encoder + ")"};
  }
  CodecHandle encoder(avcodec_alloc_context3(codec));
  if (!encoder) return Error{"out of memory"};
  auto& c = *encoder;
  describePictures(c, format, headerInFile);
  c.pix_fmt = traits.format;
  Options options;
  setUp(c, format, options);
  const int opened = avcodec_open2(&c, codec, options.entries());
  if (opened < 0) return ffmpegError("cannot encode " + name + " as " + traits.title, opened);
  return encoder;
}

}  // namespace kvo::media
