#include "media/source.h"

#include <algorithm>
#include <cmath>

namespace kvo::media {
namespace {

constexpr int kMaxReadErrors = 100;  // in a row: the file has ended, whatever it promised

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

Result<Source> Source::open(const std::string& path, AVMediaType kind, const char* noneOf, int threads) {
  Source source;
  source.path_ = path;
  auto format = openInput(path);
  if (!format) return format.error();
  source.format_ = std::move(*format);
  source.index_ = av_find_best_stream(source.format_.get(), kind, -1, -1, nullptr, 0);
  if (source.index_ < 0) return Error{noneOf + path};
  readOnly(*source.format_, source.index_);
  auto decoder = openDecoder(*source.format_, source.index_, path, threads);
  if (!decoder) return decoder.error();
  source.decoder_ = std::move(*decoder);
  return source;
}

Result<SharedFrame> Source::next(const Watch& watch) {
  auto frame = newFrame();
  for (;;) {
    const int got = avcodec_receive_frame(decoder_.get(), frame.get());
    if (got >= 0) return frame;
    if (got == AVERROR_EOF) return SharedFrame();
    if (got == AVERROR(EAGAIN)) {
      send(watch);
    } else {
      watch.fault();
    }
  }
}

// The next packet of the stream to the decoder, or the word that there are no more.
void Source::send(const Watch& watch) {
  if (!read(watch)) {
    avcodec_send_packet(decoder_.get(), nullptr);
    return;
  }
  watch.packet(*packet_);
  const int sent = avcodec_send_packet(decoder_.get(), packet_.get());
  av_packet_unref(packet_.get());
  if (sent < 0 && sent != AVERROR(EAGAIN)) watch.fault();
}

// The next packet of the stream; false at the end.
bool Source::read(const Watch& watch) {
  for (;;) {
    const int got = av_read_frame(format_.get(), packet_.get());
    const auto* io = format_->pb;
    const bool ended = got == AVERROR_EOF || (got < 0 && io != nullptr && io->eof_reached != 0);
    if (ended || (got < 0 && ++readErrors_ > kMaxReadErrors)) return false;
    if (got < 0) {
      watch.fault();
      continue;
    }
    readErrors_ = 0;
    if (packet_->stream_index == index_) return true;
    av_packet_unref(packet_.get());
  }
}

// What was read is of no use any more.
void Source::forget() {
  avcodec_flush_buffers(decoder_.get());
  readErrors_ = 0;
}

bool Source::seek(double seconds) {
  const auto at = static_cast<std::int64_t>(std::floor(seconds / timeBase()));
  if (avformat_seek_file(format_.get(), index_, INT64_MIN, at, at, AVSEEK_FLAG_BACKWARD) < 0) return false;
  forget();
  return true;
}

std::optional<double> Source::keyAt(double seconds) const {
  const auto at = static_cast<std::int64_t>(std::floor(seconds / timeBase()));
  const auto* entry = avformat_index_get_entry_from_timestamp(&stream(), at, AVSEEK_FLAG_BACKWARD);
  if (entry == nullptr) return std::nullopt;
  return static_cast<double>(entry->timestamp) * timeBase();
}

Outcome Source::reopen() {
  auto format = openInput(path_);
  if (!format) return format.error();
  if ((*format)->nb_streams <= static_cast<unsigned>(index_))
    return Error{"cannot read " + path_ + ": it has changed"};
  format_ = std::move(*format);
  readOnly(*format_, index_);
  forget();
  return {};
}

double startOf(const AVFormatContext& format) {
  const int video = videoOf(format);
  if (video >= 0 && format.streams[video]->start_time != AV_NOPTS_VALUE) {
    return static_cast<double>(format.streams[video]->start_time) * av_q2d(format.streams[video]->time_base);
  }
  return format.start_time == AV_NOPTS_VALUE ? 0 : static_cast<double>(format.start_time) / AV_TIME_BASE;
}

bool mustDecodeForStart(const AVFormatContext& format) {
  return traitsOf(format).beginsAnywhere && videoOf(format) >= 0;
}

double lastPacketEnd(AVFormatContext& format, const AVStream& stream, double from) {
  const double unit = av_q2d(stream.time_base);
  const auto at = static_cast<std::int64_t>(from / unit);
  if (avformat_seek_file(&format, stream.index, INT64_MIN, at, at, AVSEEK_FLAG_BACKWARD) < 0) return 0;
  const auto packet = newPacket();
  double end = 0;
  while (av_read_frame(&format, packet.get()) >= 0) {
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

}  // namespace kvo::media
