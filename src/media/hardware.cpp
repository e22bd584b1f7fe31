#include "media/hardware.h"

#include "media/hardware_setup.h"
#include "media/picture_encoder.h"
#include "vocabulary/movie_presets.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <utility>
#include <vector>

namespace kvo::media {
namespace {

constexpr int kCoarsestH264 = 51;
constexpr int kLongestH264Group = 250;  // pictures, as the software has it
constexpr int kFramesInDevice = 20;     // pictures that it may hold at a time

struct FreeBufferRef {
  void operator()(AVBufferRef* buffer) const { av_buffer_unref(&buffer); }
};
using BufferHandle = std::unique_ptr<AVBufferRef, FreeBufferRef>;

// What an encoder alone understands.
using DeviceOptions = std::vector<std::pair<const char*, std::string>>;

DeviceOptions nvencOptions(int quantiser, int effort) {
  constexpr int kMostEffort = 8;
  constexpr int kSteps = 6;  // from "p1" to "p7"
  const int preset = 1 + std::clamp(effort, 0, kMostEffort) * kSteps / kMostEffort;
  return {{"preset", "p" + std::to_string(preset)},
          {"profile", "high"},
          {"rc", "constqp"},
          {"qp", std::to_string(quantiser)}};
}

// Its quantiser is the context's own.
DeviceOptions qsvOptions(int /*quantiser*/, int effort) {
  const auto least = effortOf("veryfast").value_or(0);
  const auto most = static_cast<int>(effortWords().size()) - 1;
  const auto place = static_cast<std::size_t>(std::clamp(effort, least, most));
  return {{"preset", std::string(effortWords()[place])}, {"profile", "high"}};
}

DeviceOptions vaapiOptions(int quantiser, int /*effort*/) {
  return {{"profile", "high"}, {"rc_mode", "CQP"}, {"qp", std::to_string(quantiser)}};
}

struct DeviceKind {
  std::string_view name;
  AVHWDeviceType device;  // that pictures have to be brought to
  DeviceOptions (*options)(int quantiser, int effort);
};

// That of V4L2 knows bit rates alone, and does not describe its stream ahead of it.
constexpr std::array<DeviceKind, 3> kDeviceKinds = {{
    {"h264_nvenc", AV_HWDEVICE_TYPE_NONE, nvencOptions},
    {"h264_qsv", AV_HWDEVICE_TYPE_NONE, qsvOptions},
    {"h264_vaapi", AV_HWDEVICE_TYPE_VAAPI, vaapiOptions},
}};

const DeviceKind* kindNamed(std::string_view name) {
  const auto* found =
      std::find_if(kDeviceKinds.begin(), kDeviceKinds.end(), [&](const auto& k) { return k.name == name; });
  return found == kDeviceKinds.end() ? nullptr : found;
}

class OpenInDevice : public DeviceEncoder {
 public:
  OpenInDevice(CodecHandle encoder, std::string what)
      : encoder_(std::move(encoder)), what_(std::move(what)) {}

  Result<EncodedFrames> encode(const Picture& picture, std::int64_t number) override {
    auto frame = change_.to(AV_PIX_FMT_NV12, frameOf(*encoder_, picture, number));
    takeColours(*encoder_, *frame);
    if (encoder_->hw_frames_ctx == nullptr) return feed(frame.get());
    const auto brought = newFrame();
    if (const int got = av_hwframe_get_buffer(encoder_->hw_frames_ctx, brought.get(), 0); got < 0)
      return ffmpegError(what_, got);
    if (const int moved = av_hwframe_transfer_data(brought.get(), frame.get(), 0); moved < 0)
      return ffmpegError(what_, moved);
    if (const int told = av_frame_copy_props(brought.get(), frame.get()); told < 0)
      return ffmpegError(what_, told);
    return feed(brought.get());
  }

  Result<EncodedFrames> finish() override { return feed(nullptr); }

  [[nodiscard]] Outcome describe(AVCodecParameters& parameters) const override {
    const int done = avcodec_parameters_from_context(&parameters, encoder_.get());
    return done < 0 ? Outcome(ffmpegError(what_, done)) : Outcome();
  }

 private:
  Result<EncodedFrames> feed(const AVFrame* frame) {
    EncodedFrames out;
    if (const int fed = feedEncoder(*encoder_, frame, out); fed < 0) return ffmpegError(what_, fed);
    // Without pictures that refer to later ones all stand in the order in which they are seen.
    for (const auto& made : out) made.packet()->dts = made.packet()->pts;
    return out;
  }

  CodecHandle encoder_;
  std::string what_;  // for error lines
  FormatChange change_;
};

class FfmpegHardware : public Hardware {
 public:
  explicit FfmpegHardware(const DeviceKind& kind) : kind_(kind) {}

  [[nodiscard]] std::string_view name() const override { return kind_.name; }

  Result<std::unique_ptr<DeviceEncoder>> open(const VideoFormat& format, bool headerInFile) override {
    auto encoder = setUpHardware(kind_.name, format, headerInFile);
    if (!encoder) return encoder.error();
    auto what = "cannot encode by " + std::string(kind_.name);
    if (kind_.device != AV_HWDEVICE_TYPE_NONE) {
      if (const int given = giveFrames(**encoder); given < 0) return ffmpegError(what, given);
    }
    if (const int opened = avcodec_open2(encoder->get(), nullptr, nullptr); opened < 0)
      return ffmpegError(what, opened);
    return std::unique_ptr<DeviceEncoder>(
        std::make_unique<OpenInDevice>(std::move(*encoder), std::move(what)));
  }

 private:
  // One for all of its encoders. FFmpeg's error, or 0.
  int openDevice() {
    const std::lock_guard lock(mutex_);
    if (device_) return 0;
    AVBufferRef* made = nullptr;
    const int done = av_hwdevice_ctx_create(&made, kind_.device, nullptr, nullptr, 0);
    device_.reset(made);
    return done;
  }

  int giveFrames(AVCodecContext& c) {
    if (const int opened = openDevice(); opened < 0) return opened;
    BufferHandle frames(av_hwframe_ctx_alloc(device_.get()));
    if (!frames) return AVERROR(ENOMEM);
    auto& form = *reinterpret_cast<AVHWFramesContext*>(frames->data);
    form.format = c.pix_fmt;
    form.sw_format = AV_PIX_FMT_NV12;
    form.width = c.width;
    form.height = c.height;
    form.initial_pool_size = kFramesInDevice;
    if (const int begun = av_hwframe_ctx_init(frames.get()); begun < 0) return begun;
    c.hw_frames_ctx = av_buffer_ref(frames.get());
    return c.hw_frames_ctx == nullptr ? AVERROR(ENOMEM) : 0;
  }

  const DeviceKind& kind_;
  std::mutex mutex_;
  BufferHandle device_;
};

struct FreeParameters {
  void operator()(AVCodecParameters* p) const { avcodec_parameters_free(&p); }
};

}  // namespace

Result<CodecHandle> setUpHardware(std::string_view name, const VideoFormat& format, bool headerInFile) {
  const auto* kind = kindNamed(name);
  const std::string called(name);
  const auto* codec = kind == nullptr ? nullptr : avcodec_find_encoder_by_name(called.c_str());
  if (codec == nullptr) return Error{"FFmpeg has no encoder " + called + " here"};
  CodecHandle encoder(avcodec_alloc_context3(codec));
  if (!encoder) return Error{"out of memory"};
  auto& c = *encoder;
  const int quantiser = std::min(qualityOf(format), kCoarsestH264);
  describePictures(c, format, headerInFile);
  c.pix_fmt = kind->device == AV_HWDEVICE_TYPE_VAAPI ? AV_PIX_FMT_VAAPI : AV_PIX_FMT_NV12;
  c.gop_size = kLongestH264Group;
  // Not every device has pictures that refer to later ones, and segments join more simply without.
  c.max_b_frames = 0;
  c.bit_rate = 0;
  c.flags |= AV_CODEC_FLAG_QSCALE;
  c.global_quality = quantiser * FF_QP2LAMBDA;
  for (const auto& [option, value] : kind->options(quantiser, format.effort)) {
    if (const int set = av_opt_set(c.priv_data, option, value.c_str(), 0); set < 0)
      return ffmpegError(std::string(name).append(" does not know ").append(option), set);
  }
  return encoder;
}

std::span<const std::string_view> hardwareNames() {
  static constexpr std::array<std::string_view, kDeviceKinds.size()> kNames = {
      kDeviceKinds[0].name, kDeviceKinds[1].name, kDeviceKinds[2].name};
  return kNames;
}

std::unique_ptr<Hardware> hardwareNamed(std::string_view name) {
  const auto* kind = kindNamed(name);
  return kind == nullptr ? nullptr : std::make_unique<FfmpegHardware>(*kind);
}

Outcome tryHardware(Hardware& hardware) {
  constexpr int kSide = 256;  // pixels; some devices have nothing smaller than 128
  auto encoder = hardware.open({VideoCodec::H264, kSide, kSide, FrameRate(25)}, true);
  if (!encoder) return encoder.error();
  const auto first = (*encoder)->encode(share(Canvas::black(kSide, kSide)), 0);
  if (!first) return first.error();
  const auto rest = (*encoder)->finish();
  if (!rest) return rest.error();
  if (first->size() + rest->size() != 1) return Error{std::string(hardware.name()) + " gives no frame"};
  const std::unique_ptr<AVCodecParameters, FreeParameters> told(avcodec_parameters_alloc());
  if (!told) return Error{"out of memory"};
  if (auto done = (*encoder)->describe(*told); !done) return done;
  if (told->extradata_size > 0) return {};
  return Error{std::string(hardware.name()) + " does not describe its stream"};
}

}  // namespace kvo::media
