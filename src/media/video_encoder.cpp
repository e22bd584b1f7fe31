#include "media/video_encoder.h"

#include "media/ffmpeg.h"
#include "media/gif_pictures.h"
#include "media/hardware.h"
#include "media/picture_encoder.h"
#include "media/pixel_rows.h"
#include "media/scaler.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace kvo::media {
namespace {

struct FreePool {
  void operator()(AVBufferPool* p) const { av_buffer_pool_uninit(&p); }
};

AVPixelFormat rawFormat(int bitDepth) {
  return bitDepth == 16 ? AV_PIX_FMT_RGB555LE : bitDepth == 32 ? AV_PIX_FMT_BGRA : AV_PIX_FMT_BGR24;
}

// Four seconds, as far as they take no more than 128 MB while their colours are chosen.
std::size_t gifGroup(const VideoFormat& format) {
  constexpr double kSeconds = 4;
  constexpr double kBytes = 128e6;
  const double frames = std::min(static_cast<double>(format.frameRate.frameFrom(kSeconds)),
                                 kBytes / (4.0 * format.width * format.height));
  return static_cast<std::size_t>(std::max(frames, 2.0));
}

int evenUp(int side) { return (side + 1) & ~1; }

// A picture with the luma weights of BT.709, which it has by itself where it is high enough.
Picture inBt709(const Picture& picture) {
  if (usualMatrix(picture.height()) == Matrix::Bt709) return picture;
  auto canvas = copyOf(picture);
  const auto half = static_cast<std::size_t>(canvas.width() / 2);
  for (int y = 0; y < canvas.height() / 2; ++y) {
    changeMatrix(canvas.row(0, 2 * y), canvas.row(0, 2 * y + 1), canvas.row(1, y), canvas.row(2, y), half,
                 Matrix::Bt601);
  }
  return share(std::move(canvas));
}

}  // namespace

std::size_t EncodedFrame::bytes() const { return packet_ ? static_cast<std::size_t>(packet_->size) : 0; }

bool EncodedFrame::isFinest() const {
  std::size_t size = 0;
  const auto* facts =
      packet_ ? av_packet_get_side_data(packet_.get(), AV_PKT_DATA_QUALITY_STATS, &size) : nullptr;
  // The last ones, that are asked for, have a number below 0.
  return size >= sizeof(std::int32_t) &&
         static_cast<std::int32_t>(AV_RL32(facts)) <= kFinestOfSized * FF_QP2LAMBDA;
}

struct VideoEncoder::State {
  State(VideoFormat wanted, std::string fileName) : format(std::move(wanted)), name(std::move(fileName)) {}
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() { endAv1(); }

  VideoFormat format;
  std::string name;
  CodecHandle encoder{};  // none for raw video, and where a device encodes
  std::unique_ptr<DeviceEncoder> device{};
  std::optional<Scaler> scaler{};
  FormatChange change{};  // to the encoder's own kind of picture
  std::optional<GifPictures> gif{};

  // Raw video
  std::unique_ptr<AVBufferPool, FreePool> rawPool{};
  std::size_t rawStride = 0;
  std::vector<std::uint8_t> rawRow{};

  bool hasBegun = false;
  bool hasEnded = false;

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
    if (format.codec == VideoCodec::Raw) {
      beginRaw();
      return {};
    }
    if (format.hardware != nullptr) return beginInDevice(headerInFile);
    auto opened = openPictureEncoder(format, headerInFile, name);
    if (!opened) return opened.error();
    encoder = std::move(*opened);
    if (format.codec == VideoCodec::Gif) gif.emplace(gifGroup(format));
    return {};
  }

  Outcome beginInDevice(bool headerInFile) {
    if (auto fit = checkSize(format, name); !fit) return fit;
    auto opened = format.hardware->open(format, headerInFile);
    if (!opened) return opened.error();
    device = std::move(*opened);
    return {};
  }

  [[nodiscard]] bool fits(const Picture& picture) const {
    return picture.width() == evenUp(format.width) && picture.height() == evenUp(format.height);
  }

  Result<Picture> broughtToSize(const Picture& picture) {
    const auto frame = newFrame();
    if (av_frame_ref(frame.get(), picture.frame()) < 0) throw std::bad_alloc();
    if (!scaler) scaler.emplace(evenUp(format.width), evenUp(format.height));
    return scaler->place(frame, Fit::Letterbox);
  }

  // The encoder of AV1 can only be let go of when it has seen a picture and an end.
  void endAv1() {
    if (format.codec != VideoCodec::Av1 || !encoder || hasEnded) return;
    EncodedFrames unwanted;
    if (!hasBegun && !feed(newFrame(encoder->pix_fmt, format.width, format.height).get(), unwanted)) return;
    (void)feed(nullptr, unwanted).ok();
  }

  // Null asks for what is held back.
  Outcome feed(const AVFrame* frame, EncodedFrames& out) {
    hasBegun = true;
    hasEnded = frame == nullptr;
    const int fed = feedEncoder(*encoder, frame, out);
    return fed < 0 ? Outcome(failure(fed)) : Outcome();
  }

  Result<EncodedFrames> encodeAll(const Result<std::vector<SharedFrame>>& frames) {
    if (!frames) return frames.error();
    EncodedFrames out;
    for (const auto& frame : *frames) {
      if (auto done = feed(frame.get(), out); !done) return done.error();
    }
    return out;
  }

  Result<EncodedFrames> encode(const Picture& given, std::int64_t number) {
    const auto picture = isBt709Always(format.codec) ? inBt709(given) : given;
    if (device) return device->encode(picture, number);
    auto frame = frameOf(*encoder, picture, number);
    if (gif) return encodeAll(gif->put(std::move(frame)));
    frame = change.to(encoder->pix_fmt, frame);
    takeColours(*encoder, *frame);
    EncodedFrames out;
    auto done = feed(frame.get(), out);
    return done ? Result<EncodedFrames>(std::move(out)) : done.error();
  }

  Result<EncodedFrames> finish() {
    if (device) return device->finish();
    if (!encoder) return EncodedFrames();
    auto out = gif ? encodeAll(gif->finish()) : Result<EncodedFrames>(EncodedFrames());
    if (!out) return out;
    auto done = feed(nullptr, *out);
    return done ? std::move(out) : done.error();
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

  EncodedFrames encodeRaw(const Picture& picture, std::int64_t number) {
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
    EncodedFrames out;
    out.emplace_back(std::move(packet));
    return out;
  }
};

VideoEncoder::VideoEncoder(std::unique_ptr<State> state) : state_(std::move(state)) {}
VideoEncoder::VideoEncoder(VideoEncoder&&) noexcept = default;
VideoEncoder& VideoEncoder::operator=(VideoEncoder&&) noexcept = default;
VideoEncoder::~VideoEncoder() = default;

Result<VideoEncoder> VideoEncoder::open(const VideoFormat& format, bool headerInFile,
                                        const std::string& name) {
  auto state = std::make_unique<State>(format, name);
  if (auto begun = state->begin(headerInFile); !begun) return begun.error();
  return VideoEncoder(std::move(state));
}

Result<EncodedFrames> VideoEncoder::encode(const Picture& picture, std::int64_t number) {
  if (!state_->fits(picture)) {
    const auto sized = state_->broughtToSize(picture);
    return sized ? encode(*sized, number) : sized.error();
  }
  return state_->format.codec != VideoCodec::Raw ? state_->encode(picture, number)
                                                 : Result<EncodedFrames>(state_->encodeRaw(picture, number));
}

Result<EncodedFrames> VideoEncoder::finish() { return state_->finish(); }

Outcome VideoEncoder::describe(AVCodecParameters& parameters) const {
  if (state_->device) return state_->device->describe(parameters);
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
