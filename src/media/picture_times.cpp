#include "media/picture_times.h"

#include "media/source.h"

#include <algorithm>

namespace kvo::media {
namespace {

bool tellsTimes(const AVFormatContext& format) {
  return (format.iformat->flags & AVFMT_NOTIMESTAMPS) == 0 && !traitsOf(format).numbersChunks &&
         !mustDecodeForStart(format);
}

// In ticks of the stream. What is only there for others to be decoded is none.
std::vector<std::int64_t> stampsOf(AVFormatContext& format, int video, const std::function<bool()>& goesOn) {
  for (unsigned i = 0; i < format.nb_streams; ++i)
    format.streams[i]->discard = static_cast<int>(i) == video ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
  std::vector<std::int64_t> stamps;
  const auto packet = newPacket();
  while (goesOn() && av_read_frame(&format, packet.get()) >= 0) {
    const auto stamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
    const bool shown = packet->stream_index == video && (packet->flags & AV_PKT_FLAG_DISCARD) == 0;
    if (shown && stamp != AV_NOPTS_VALUE) stamps.push_back(stamp);
    av_packet_unref(packet.get());
  }
  std::sort(stamps.begin(), stamps.end());
  stamps.erase(std::unique(stamps.begin(), stamps.end()), stamps.end());
  return stamps;
}

}  // namespace

Result<std::vector<double>> readPictureTimes(const std::string& path, const std::function<bool()>& goesOn) {
  auto opened = openInput(path);
  if (!opened) return opened.error();
  auto& format = **opened;
  const int video = av_find_best_stream(&format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  const Error cannot{"the pictures of " + path + " cannot be counted"};
  if (video < 0 || !tellsTimes(format)) return cannot;
  const auto stamps = stampsOf(format, video, goesOn);
  if (!goesOn()) return cannot;
  const double unit = av_q2d(format.streams[video]->time_base);
  std::vector<double> times;
  times.reserve(stamps.size());
  for (const auto stamp : stamps) times.push_back(static_cast<double>(stamp - stamps.front()) * unit);
  return times;
}

}  // namespace kvo::media
