#include "media/picture_times.h"

#include "media/source.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kvo::media {
namespace {

// What libraries say of a rate goes by the first pictures at best; we look at so many, of which the last may
// still wait for some that are shown ahead of them.
constexpr std::size_t kLookedAt = 256;
constexpr std::size_t kReordered = 16;
constexpr double kStampRounding = 0.0011;  // seconds: containers count in milliseconds

bool tellsTimes(const AVFormatContext& format) {
  return (format.iformat->flags & AVFMT_NOTIMESTAMPS) == 0 && !traitsOf(format).numbersChunks &&
         !mustDecodeForStart(format);
}

class Stamps {
 public:
  Stamps(AVFormatContext& format, int video)
      : format_(format), video_(video), unit_(av_q2d(format.streams[video]->time_base)) {
    for (unsigned i = 0; i < format.nb_streams; ++i)
      format.streams[i]->discard = static_cast<int>(i) == video ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
  }

  // Up to so many pictures; false at the end of the file. What is only there for others to be decoded is
  // none.
  bool read(std::size_t pictures, const std::function<bool()>& goesOn) {
    const auto packet = newPacket();
    while (stamps_.size() < pictures) {
      if (!goesOn() || av_read_frame(&format_, packet.get()) < 0) return false;
      const auto stamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
      const bool shown = packet->stream_index == video_ && (packet->flags & AV_PKT_FLAG_DISCARD) == 0;
      if (shown && stamp != AV_NOPTS_VALUE) stamps_.push_back(stamp);
      av_packet_unref(packet.get());
    }
    return true;
  }
  [[nodiscard]] std::vector<double> times() const {
    auto sorted = stamps_;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    std::vector<double> times;
    times.reserve(sorted.size());
    for (const auto stamp : sorted) times.push_back(static_cast<double>(stamp - sorted.front()) * unit_);
    return times;
  }

 private:
  AVFormatContext& format_;
  int video_;
  double unit_;  // seconds
  std::vector<std::int64_t> stamps_;
};

bool keep(const std::vector<double>& times, double rate, std::size_t reordered) {
  for (std::size_t i = 0; i + reordered < times.size(); ++i) {
    if (std::fabs(times[i] - static_cast<double>(i) / rate) > kStampRounding) return false;
  }
  return true;
}

}  // namespace

Result<std::vector<double>> readUnevenTimes(const std::string& path, double steadyRate,
                                            const std::function<bool()>& goesOn) {
  auto opened = openInput(path);
  if (!opened) return opened.error();
  auto& format = **opened;
  const int video = av_find_best_stream(&format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  const Error cannot{"the pictures of " + path + " cannot be counted"};
  if (video < 0 || !tellsTimes(format)) return cannot;
  Stamps stamps(format, video);
  const bool more = stamps.read(kLookedAt, goesOn);
  if (steadyRate > 0 && keep(stamps.times(), steadyRate, more ? kReordered : 0)) return std::vector<double>();
  if (more) stamps.read(std::numeric_limits<std::size_t>::max(), goesOn);
  if (!goesOn()) return cannot;
  return stamps.times();
}

}  // namespace kvo::media
