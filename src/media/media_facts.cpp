#include "media/media_facts.h"

#include "media/facts_of.h"
#include "media/frame_clock.h"
#include "media/heif.h"
#include "media/orientation.h"
#include "media/source.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kvo::media {
namespace {

constexpr double kTail = 5;  // seconds ahead of the end that are looked through for the last picture

// A bare stream has no times: its pictures are counted.
double countedLength(AVFormatContext& format, const AVStream& stream, double frameRate) {
  const auto packet = newPacket();
  double count = 0;
  while (av_read_frame(&format, packet.get()) >= 0) {
    count += packet->stream_index == stream.index ? 1 : 0;
    av_packet_unref(packet.get());
  }
  return frameRate > 0 ? count / frameRate : 0;
}

double containerLength(const AVFormatContext& format) {
  return format.duration > 0 ? static_cast<double>(format.duration) / AV_TIME_BASE : 0;
}

// A file that tells no length has one that FFmpeg takes from its size and the rate of its first packets,
// which is wrong where the rate changes.
bool isGuessed(const AVFormatContext& format) {
  constexpr std::int64_t kMostCounted = 256LL << 20;  // bytes
  return format.duration_estimation_method == AVFMT_DURATION_FROM_BITRATE && format.nb_streams > 0 &&
         format.streams[0]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO && format.pb != nullptr &&
         avio_size(format.pb) <= kMostCounted;
}

// How long there are pictures: sound may go on longer, and the container counts both.
double pictureLength(AVFormatContext& format, const AVStream& stream, double frameRate, bool hasAudio) {
  if ((format.iformat->flags & AVFMT_NOTIMESTAMPS) != 0 || traitsOf(format).hasNoTimes)
    return countedLength(format, stream, frameRate);
  const double unit = av_q2d(stream.time_base);
  if (stream.duration > 0 && (traitsOf(format).tellsLengthOfEach || mustDecodeForStart(format)))
    return static_cast<double>(stream.duration) * unit;
  const double whole = containerLength(format);
  if (!hasAudio || whole <= 0) return whole;
  const double start =
      stream.start_time == AV_NOPTS_VALUE ? 0 : static_cast<double>(stream.start_time) * unit;
  const double origin =
      format.start_time == AV_NOPTS_VALUE ? 0 : static_cast<double>(format.start_time) / AV_TIME_BASE;
  double end = lastPacketEnd(format, stream, origin + whole - kTail);
  if (end <= start) end = lastPacketEnd(format, stream, start);
  return end > start ? end - start : whole;
}

// "MPEG-1 video", "H.264", "MP3": a codec as people call it, without what stands behind it in brackets or
// behind a stroke.
std::string nameOfCodec(AVCodecID id) {
  const auto* descriptor = avcodec_descriptor_get(id);
  if (descriptor == nullptr) return {};
  const std::string_view name = descriptor->long_name == nullptr ? descriptor->name : descriptor->long_name;
  return std::string(name.substr(0, std::min(name.find(" ("), name.find(" / "))));
}

// Whether its sides change places when it is turned upright.
bool isOnItsSide(const std::string& path, const AVFormatContext& format, const AVStream& stream) {
  if (traitsOf(format).isStill) return orientationOfExif(exifOfFile(path)).swapsSides;
  std::size_t size = 0;
  const auto* matrix = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
  return matrix != nullptr && size >= kMatrixBytes && orientationOfMatrix(matrix).swapsSides;
}

}  // namespace

double wholeLength(AVFormatContext& format) {
  if (!isGuessed(format)) return containerLength(format);
  const auto packet = newPacket();
  double seconds = 0;
  while (av_read_frame(&format, packet.get()) >= 0) {
    if (packet->stream_index == 0)
      seconds += static_cast<double>(packet->duration) * av_q2d(format.streams[0]->time_base);
    av_packet_unref(packet.get());
  }
  return seconds > 0 ? seconds : containerLength(format);
}

Result<StreamFacts> readFacts(const std::string& path) {
  if (isHeif(path)) return heifFacts(path);
  auto opened = openInput(path);
  return opened ? factsOf(**opened, path) : Result<StreamFacts>(opened.error());
}

Result<StreamFacts> factsOf(AVFormatContext& format, const std::string& path) {
  StreamFacts facts;
  const int video = av_find_best_stream(&format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  const int audio = av_find_best_stream(&format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
  facts.hasAudio = audio >= 0;
  if (audio >= 0) {
    const auto& sound = *format.streams[audio]->codecpar;
    facts.sampleRate = sound.sample_rate;
    facts.channels = sound.ch_layout.nb_channels;
    facts.codec = nameOfCodec(sound.codec_id);
  }
  // A file may be taken for sound by its name alone, and hold none.
  if (video < 0 && facts.sampleRate == 0)
    return Error{"cannot open " + path + ": it is no media file, or damaged"};
  facts.duration = facts.wholeDuration = wholeLength(format);
  if (video >= 0) {
    const auto& stream = *format.streams[video];
    // The cover picture of a music file is no video.
    facts.hasVideo = (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0;
    facts.width = stream.codecpar->width;
    facts.height = stream.codecpar->height;
    facts.frameRate = stream.avg_frame_rate.den > 0 ? av_q2d(stream.avg_frame_rate) : 0;
    facts.steadyRate = steadyRateOf(stream);
    facts.isStill = traitsOf(format).isStill;
    if (isOnItsSide(path, format, stream)) std::swap(facts.width, facts.height);
    // One picture of what as a film is called "Motion JPEG".
    const bool isJpeg = facts.isStill && stream.codecpar->codec_id == AV_CODEC_ID_MJPEG;
    if (facts.hasVideo) facts.codec = isJpeg ? "JPEG" : nameOfCodec(stream.codecpar->codec_id);
    if (facts.hasVideo && (facts.width <= 0 || facts.height <= 0))
      return Error{"the picture in " + path + " is damaged, or too large"};
    if (facts.hasVideo) facts.duration = pictureLength(format, stream, facts.frameRate, facts.hasAudio);
    facts.wholeDuration = std::max(facts.wholeDuration, facts.duration);
    if (facts.isStill) facts.duration = facts.wholeDuration = 0;
  }
  return facts;
}

Outcome checkInput(const std::string& path) {
  if (isHeif(path)) {
    const auto facts = heifFacts(path);
    return facts ? Outcome() : Outcome(facts.error());
  }
  const auto opened = openHead(path);
  return opened ? Outcome() : Outcome(opened.error());
}

void silenceRemarks() {
  av_log_set_level(AV_LOG_QUIET);
  ::setenv("SVT_LOG", "0",
           0);  // NOLINT(concurrency-mt-unsafe): ahead of the first encoder of AV1, which has its own
}

}  // namespace kvo::media
