#include "base/paths.h"
#include "media/container_traits.h"
#include "media/ffmpeg.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace kvo::media {
namespace {

// Larger pictures are refused ahead of any allocation: 128 million pixels is a 16K frame.
constexpr std::int64_t kMaxPixels = 128LL << 20;

constexpr std::int64_t kFarProbe = 64LL << 20;  // bytes
constexpr std::int64_t kFarSeconds = 30;

bool lacksSize(const AVFormatContext& context) {
  if (!traitsOf(context).tellsSizeLate) return false;
  for (unsigned i = 0; i < context.nb_streams; ++i) {
    const auto& p = *context.streams[i]->codecpar;
    if (p.codec_type == AVMEDIA_TYPE_VIDEO && p.width <= 0 && p.codec_id != AV_CODEC_ID_NONE) return true;
  }
  return false;
}

// Opens the file itself, and nothing that it refers to.
int openOnlyOnce(AVFormatContext* context, AVIOContext** io, const char* url, int flags,
                 AVDictionary** options) {
  return context->pb != nullptr ? AVERROR(EACCES)
                                : avio_open2(io, url, flags, &context->interrupt_callback, options);
}

// MIDI tells what is to be played, and holds no sound.
bool isScore(const std::string& path) {
  constexpr std::size_t kFormAt = 8;  // behind "RIFF" and its length
  std::array<char, 12> head{};
  std::ifstream(path, std::ios::binary).read(head.data(), head.size());
  const std::string_view bytes(head.data(), head.size());
  return bytes.starts_with("MThd") || (bytes.starts_with("RIFF") && bytes.substr(kFormAt) == "RMID");
}

}  // namespace

Result<FormatHandle> openHead(const std::string& path) {
  // A pipe or a device would keep whoever opens it waiting.
  std::error_code code;
  const auto kind = std::filesystem::status(path, code);
  if (std::filesystem::exists(kind) && !std::filesystem::is_regular_file(kind))
    return Error{"cannot open " + path + ": it is no file"};
  AVFormatContext* raw = avformat_alloc_context();
  if (raw == nullptr) return Error{"cannot open " + path + ": out of memory"};
  raw->io_open = openOnlyOnce;
  AVDictionary* options = nullptr;
  av_dict_set(&options, "pattern_type", "none", 0);
  const int opened = avformat_open_input(&raw, ("file:" + DvdSource(path)).c_str(), nullptr, &options);
  av_dict_free(&options);
  if (opened < 0 && isScore(path))
    return Error{"cannot play " + path + ": it is a score (MIDI), and there is no synthesizer for it"};
  if (opened == AVERROR_INVALIDDATA || opened == AVERROR(EINVAL) || opened == AVERROR_EOF)
    return Error{"cannot open " + path + ": it is no media file, or damaged"};
  if (opened < 0) return ffmpegError("cannot open " + path, opened);
  FormatHandle format(raw);
  if (traitsOf(*format).refersToOthers) return Error{"cannot open " + path + ": it is a list of other files"};
  return format;
}

Result<FormatHandle> openInput(const std::string& path) {
  auto format = openHead(path);
  if (!format) return format;
  int found = avformat_find_stream_info(format->get(), nullptr);
  // A recording may begin far inside a group of pictures.
  if (found >= 0 && lacksSize(**format)) {
    format = openHead(path);
    if (!format) return format;
    (*format)->probesize = kFarProbe;
    (*format)->max_analyze_duration = kFarSeconds * AV_TIME_BASE;
    found = avformat_find_stream_info(format->get(), nullptr);
  }
  return found < 0 ? Result<FormatHandle>(ffmpegError("cannot read " + path, found)) : std::move(format);
}

Result<CodecHandle> openDecoder(AVFormatContext& format, int stream, const std::string& path, int threads) {
  const auto* parameters = format.streams[stream]->codecpar;
  const auto* codec = avcodec_find_decoder(parameters->codec_id);
  if (codec == nullptr) {
    return Error{"cannot decode " + path + ": no decoder for " + avcodec_get_name(parameters->codec_id)};
  }
  CodecHandle decoder(avcodec_alloc_context3(codec));
  if (!decoder) return Error{"cannot decode " + path + ": out of memory"};
  if (const int taken = avcodec_parameters_to_context(decoder.get(), parameters); taken < 0) {
    return ffmpegError("cannot decode " + path, taken);
  }
  decoder->pkt_timebase = format.streams[stream]->time_base;
  decoder->max_pixels = kMaxPixels;
  decoder->thread_count = threads;
  if (const int opened = avcodec_open2(decoder.get(), codec, nullptr); opened < 0) {
    return ffmpegError("cannot decode " + path, opened);
  }
  return decoder;
}

}  // namespace kvo::media
