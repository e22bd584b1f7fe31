#include "media/video_encoder.h"

#include "media/ffmpeg.h"
#include "media/pixel_rows.h"
#include "media/scaler.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace kvo::media {
namespace {

constexpr int kGroupOfPictures = 12;
constexpr int kCoarsest = 31;  // quantiser

struct FreePool {
  void operator()(AVBufferPool* p) const { av_buffer_pool_uninit(&p); }
};

AVPixelFormat rawFormat(int bitDepth) {
  return bitDepth == 16 ? AV_PIX_FMT_RGB555LE : bitDepth == 32 ? AV_PIX_FMT_BGRA : AV_PIX_FMT_BGR24;
}

}  // namespace

std::size_t EncodedFrame::bytes() const { return packet_ ? static_cast<std::size_t>(packet_->size) : 0; }

struct VideoEncoder::State {
  VideoFormat format;
  std::string name;
  CodecHandle encoder;  // none for raw video
  std::optional<Scaler> scaler;

  // Raw video
  std::unique_ptr<AVBufferPool, FreePool> rawPool;
  std::size_t rawStride = 0;
  std::vector<std::uint8_t> rawRow;

  [[nodiscard]] Error failure(int code) const { return ffmpegError("cannot encode " + name, code); }

  void beginRaw() {
    // Rows of a device-independent bitmap are whole multiples of four bytes.
    rawStride =
        (static_cast<std::size_t>(format.width) * static_cast<std::size_t>(format.bitDepth) + 31) / 32 * 4;
    rawPool.reset(av_buffer_pool_init(
        rawStride * static_cast<std::size_t>(format.height) + AV_INPUT_BUFFER_PADDING_SIZE, nullptr));
    rawRow.resize(static_cast<std::size_t>(format.width) * 3);
  }

  Outcome begin(bool headerInFile) {
    const auto id = format.codec == VideoCodec::Mpeg4 ? AV_CODEC_ID_MPEG4 : AV_CODEC_ID_WMV2;
    const auto* codec = avcodec_find_encoder(id);
    if (codec == nullptr) {
      return Error{"cannot write " + name + ": no encoder for " + avcodec_get_name(id)};
    }
    if (format.codec == VideoCodec::Wmv2 && format.width % 2 != 0) {
      return Error{"cannot write " + name + ": its width of " + std::to_string(format.width) +
                   " is odd, and Windows Media Video has even widths only"};
    }
    encoder.reset(avcodec_alloc_context3(codec));
    auto& c = *encoder;
    c.width = format.width;
    c.height = format.height;
    c.pix_fmt = AV_PIX_FMT_YUV420P;
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
    c.thread_count = 1;
    if (headerInFile) c.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    const int opened = avcodec_open2(&c, codec, nullptr);
    return opened < 0 ? Outcome(failure(opened)) : Outcome();
  }

  [[nodiscard]] bool fits(const Picture& picture) const {
    const auto even = [](int side) { return (side + 1) & ~1; };
    return picture.width() == even(format.width) && picture.height() == even(format.height);
  }

  Result<Picture> broughtToSize(const Picture& picture) {
    const auto frame = newFrame();
    if (av_frame_ref(frame.get(), picture.frame()) < 0) throw std::bad_alloc();
    if (!scaler) scaler.emplace((format.width + 1) & ~1, (format.height + 1) & ~1);
    return scaler->place(frame, Fit::Letterbox);
  }

  Result<EncodedFrame> encode(const Picture& picture, std::int64_t number) {
    const auto frame = newFrame();
    auto packet = newPacket();
    if (av_frame_ref(frame.get(), picture.frame()) < 0) throw std::bad_alloc();
    frame->width = format.width;
    frame->height = format.height;
    frame->pts = number;
    // What the source's stream said of its frame does not hold for ours.
    frame->pict_type = AV_PICTURE_TYPE_NONE;
    frame->quality = encoder->global_quality;
    frame->sample_aspect_ratio = {0, 1};
    int done = avcodec_send_frame(encoder.get(), frame.get());
    if (done >= 0) done = avcodec_receive_packet(encoder.get(), packet.get());
    if (done < 0) return failure(done);
    packet->duration = 1;
    return EncodedFrame(std::move(packet));
  }

  void convertRow(const Picture& picture, int y, std::uint8_t* out) {
    const auto width = static_cast<std::size_t>(format.width);
    auto* bgr = format.bitDepth == 24 ? out : rawRow.data();
    yuvToBgr(picture.row(0, y), picture.row(1, y / 2), picture.row(2, y / 2), bgr, width,
             usualMatrix(picture.height()));
    if (format.bitDepth == 32) {
      for (std::size_t x = 0; x < width; ++x) {
        std::copy_n(bgr + 3 * x, 3, out + 4 * x);
        out[4 * x + 3] = 0xFF;
      }
    } else if (format.bitDepth == 16) {
      for (std::size_t x = 0; x < width; ++x) {
        const auto five = [&](std::size_t colour) {
          return static_cast<unsigned>(bgr[3 * x + colour]) >> 3U;
        };
        const unsigned word = five(0) | five(1) << 5U | five(2) << 10U;
        out[2 * x] = static_cast<std::uint8_t>(word & 0xFFU);
        out[2 * x + 1] = static_cast<std::uint8_t>(word >> 8U);
      }
    }
  }

  Result<EncodedFrame> encodeRaw(const Picture& picture, std::int64_t number) {
    auto packet = newPacket();
    packet->buf = av_buffer_pool_get(rawPool.get());
    if (packet->buf == nullptr) throw std::bad_alloc();
    packet->data = packet->buf->data;
    packet->size = static_cast<int>(rawStride) * format.height;
    for (int y = 0; y < format.height; ++y) {
      convertRow(picture, y, packet->data + rawStride * static_cast<std::size_t>(format.height - 1 - y));
    }
    packet->pts = packet->dts = number;
    packet->duration = 1;
    packet->flags |= AV_PKT_FLAG_KEY;
    return EncodedFrame(std::move(packet));
  }
};

VideoEncoder::VideoEncoder(std::unique_ptr<State> state) : state_(std::move(state)) {}
VideoEncoder::VideoEncoder(VideoEncoder&&) noexcept = default;
VideoEncoder& VideoEncoder::operator=(VideoEncoder&&) noexcept = default;
VideoEncoder::~VideoEncoder() = default;

Result<VideoEncoder> VideoEncoder::open(const VideoFormat& format, bool headerInFile,
                                        const std::string& name) {
  auto state = std::make_unique<State>(State{format, name, nullptr, std::nullopt, nullptr, 0, {}});
  if (format.codec == VideoCodec::Raw) {
    state->beginRaw();
  } else if (auto begun = state->begin(headerInFile); !begun) {
    return begun.error();
  }
  return VideoEncoder(std::move(state));
}

Result<EncodedFrame> VideoEncoder::encode(const Picture& picture, std::int64_t number) {
  if (!state_->fits(picture)) {
    const auto sized = state_->broughtToSize(picture);
    return sized ? encode(*sized, number) : sized.error();
  }
  return state_->encoder ? state_->encode(picture, number) : state_->encodeRaw(picture, number);
}

Outcome VideoEncoder::describe(AVCodecParameters& parameters) const {
  if (state_->encoder) {
    const int done = avcodec_parameters_from_context(&parameters, state_->encoder.get());
    return done < 0 ? Outcome(state_->failure(done)) : Outcome();
  }
  parameters.codec_type = AVMEDIA_TYPE_VIDEO;
  parameters.codec_id = AV_CODEC_ID_RAWVIDEO;
  parameters.format = rawFormat(state_->format.bitDepth);
  parameters.width = state_->format.width;
  parameters.height = state_->format.height;
  parameters.bits_per_coded_sample = state_->format.bitDepth;
  return {};
}

}  // namespace kvo::media
