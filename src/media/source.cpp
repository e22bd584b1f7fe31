#include "media/source.h"

#include <algorithm>
#include <string_view>

namespace kvo::media {
namespace {

void readOnly(AVFormatContext& format, int index) {
  for (unsigned i = 0; i < format.nb_streams; ++i) {
    if (static_cast<int>(i) != index) format.streams[i]->discard = AVDISCARD_ALL;
  }
}

// The best stream of pictures that move; the cover of a music file does not count. Below 0 when there is
// none.
int videoOf(const AVFormatContext& format) {
  const int video =
      av_find_best_stream(const_cast<AVFormatContext*>(&format), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  const bool isCover = video >= 0 && (format.streams[video]->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
  return isCover ? -1 : video;
}

}  // namespace

Result<Source> openSource(const std::string& path, AVMediaType kind, const char* noneOf, int threads) {
  Source source;
  source.path = path;
  auto format = openInput(path);
  if (!format) return format.error();
  source.format = std::move(*format);
  source.index = av_find_best_stream(source.format.get(), kind, -1, -1, nullptr, 0);
  if (source.index < 0) return Error{noneOf + path};
  readOnly(*source.format, source.index);
  auto decoder = openDecoder(*source.format, source.index, path, threads);
  if (!decoder) return decoder.error();
  source.decoder = std::move(*decoder);
  return source;
}

Outcome reopen(Source& source) {
  auto format = openInput(source.path);
  if (!format) return format.error();
  if ((*format)->nb_streams <= static_cast<unsigned>(source.index))
    return Error{"cannot read " + source.path + ": it has changed"};
  source.format = std::move(*format);
  readOnly(*source.format, source.index);
  avcodec_flush_buffers(source.decoder.get());
  return {};
}

double startOf(const AVFormatContext& format) {
  const int video = videoOf(format);
  if (video >= 0 && format.streams[video]->start_time != AV_NOPTS_VALUE) {
    return static_cast<double>(format.streams[video]->start_time) * av_q2d(format.streams[video]->time_base);
  }
  return format.start_time == AV_NOPTS_VALUE ? 0 : static_cast<double>(format.start_time) / AV_TIME_BASE;
}

double lastPacketEnd(AVFormatContext& format, const AVStream& stream, double from) {
  const double unit = av_q2d(stream.time_base);
  const auto at = static_cast<std::int64_t>(from / unit);
  if (avformat_seek_file(&format, stream.index, INT64_MIN, at, at, AVSEEK_FLAG_BACKWARD) < 0) return 0;
  const PacketHandle packet(av_packet_alloc());
  double end = 0;
  while (packet && av_read_frame(&format, packet.get()) >= 0) {
    const auto time = packet->pts == AV_NOPTS_VALUE ? packet->dts : packet->pts;
    if (packet->stream_index == stream.index && time != AV_NOPTS_VALUE)
      end = std::max(end, static_cast<double>(time + packet->duration) * unit);
    av_packet_unref(packet.get());
  }
  return end;
}

double endOfSound(const std::string& path, double from) {
  auto format = openInput(path);
  if (!format) return 0;
  const int index = av_find_best_stream(format->get(), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
  if (index < 0) return 0;
  readOnly(**format, index);
  return lastPacketEnd(**format, *(*format)->streams[index], from);
}

bool tellsLengthOfEach(const AVFormatContext& format) {
  const std::string_view name(format.iformat->name);
  return name.starts_with("mov,") || name == "avi";
}

bool mustDecodeForStart(const AVFormatContext& format) {
  const std::string_view name(format.iformat->name);
  return videoOf(format) >= 0 && (name == "mpegts" || name == "mpeg");
}

}  // namespace kvo::media
