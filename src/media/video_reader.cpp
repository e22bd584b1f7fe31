#include "media/video_reader.h"

#include "base/numbers.h"
#include "media/deinterlace.h"
#include "media/ffmpeg.h"

#include <algorithm>
#include <cmath>

namespace kvo::media {
namespace {

// Containers that count in milliseconds put a frame up to half of one late or early.
constexpr double kTimeTolerance = 0.00075;
// Ahead by more than this it is cheaper to seek to a key frame than to decode all between.
constexpr double kSeekAhead = 4.0;
// How long the last frame stands when the sound, or the marks, go on.
constexpr double kHoldLast = 0.5;
constexpr int kMaxBadPackets = 100;

}  // namespace

struct VideoReader::State {
  std::string path;
  FormatHandle format;
  CodecHandle decoder;
  PacketHandle packet{av_packet_alloc()};
  int stream = 0;
  double timeBase = 0;
  double origin = 0;       // the container's time of its start
  double frameLength = 0;  // nominal, seconds
  bool still = false;
  bool steady = false;  // a constant frame rate
  bool fed = false;     // the decoder was given the end of the stream
  bool ended = false;   // and has given everything back
  bool positioned = false;
  int badPackets = 0;
  SharedFrame current;
  SharedFrame next;
  double currentTime = 0;
  double nextTime = 0;

  // What the container says of how the picture lies goes with each frame.
  void addDisplayMatrix(AVFrame& frame) const {
    if (av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX) != nullptr) return;
    std::size_t size = 0;
    const auto* matrix = av_stream_get_side_data(format->streams[stream], AV_PKT_DATA_DISPLAYMATRIX, &size);
    if (matrix == nullptr || size == 0) return;
    if (auto* side = av_frame_new_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX, size)) {
      std::copy_n(matrix, size, side->data);
    }
  }

  double timeOf(const AVFrame& frame, double otherwise) const {
    const auto pts = frame.best_effort_timestamp;
    return pts == AV_NOPTS_VALUE ? otherwise : static_cast<double>(pts) * timeBase - origin;
  }

  // Non-reference frames well ahead of the wanted time are never shown, so they need not be decoded. Where
  // the rate varies the frame that is shown may have begun a while ago.
  void skipAheadOf(double wanted) const {
    const auto pts = packet->pts;
    const double margin = steady ? 1.5 * frameLength : 4 * frameLength + 0.2;
    const bool wellAhead =
        pts != AV_NOPTS_VALUE && static_cast<double>(pts) * timeBase - origin < wanted - margin;
    decoder->skip_frame = wellAhead ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
  }

  Outcome feed(double wanted) {
    for (;;) {
      const int got = av_read_frame(format.get(), packet.get());
      if (got == AVERROR_EOF || (got < 0 && format->pb != nullptr && format->pb->eof_reached != 0)) {
        fed = true;
        avcodec_send_packet(decoder.get(), nullptr);
        return {};
      }
      if (got < 0) return ffmpegError("cannot read " + path, got);
      if (packet->stream_index != stream) {
        av_packet_unref(packet.get());
        continue;
      }
      skipAheadOf(wanted);
      const int sent = avcodec_send_packet(decoder.get(), packet.get());
      av_packet_unref(packet.get());
      if (sent < 0 && sent != AVERROR(EAGAIN) && ++badPackets > kMaxBadPackets) {
        return ffmpegError("cannot decode " + path, sent);
      }
      return {};
    }
  }

  // Decodes one frame more into `next`, or finds the end.
  Outcome decodeNext(double wanted) {
    auto frame = newFrame();
    while (!ended) {
      const int got = avcodec_receive_frame(decoder.get(), frame.get());
      if (got >= 0) {
        nextTime = timeOf(*frame, nextTime + frameLength);
        addDisplayMatrix(*frame);
        if (frame->sample_aspect_ratio.num == 0) {
          frame->sample_aspect_ratio = format->streams[stream]->sample_aspect_ratio;
        }
        if (frame->interlaced_frame != 0) frame = deinterlaced(frame);
        if (!frame) return Error{"out of memory for a picture of " + path};
        next = std::move(frame);
        return {};
      }
      if (got == AVERROR_EOF) {
        ended = true;
      } else if (got == AVERROR(EAGAIN)) {
        if (auto done = feed(wanted); !done) return done;
      } else if (++badPackets > kMaxBadPackets) {
        return ffmpegError("cannot decode " + path, got);
      }
    }
    return {};
  }

  Outcome seek(double seconds) {
    const auto wanted = static_cast<std::int64_t>(std::floor((seconds + origin + kTimeTolerance) / timeBase));
    for (const double back : {0.0, 2.0, 1e9}) {
      const auto at = back > 1e8 ? INT64_MIN : wanted - static_cast<std::int64_t>(back / timeBase);
      const bool fromStart = at == INT64_MIN || seconds - back <= 0;
      if (avformat_seek_file(
              format.get(), stream, INT64_MIN, fromStart ? static_cast<std::int64_t>(origin / timeBase) : at,
              fromStart ? static_cast<std::int64_t>(origin / timeBase) : at, AVSEEK_FLAG_BACKWARD) < 0 &&
          !fromStart) {
        continue;
      }
      avcodec_flush_buffers(decoder.get());
      fed = ended = false;
      current.reset();
      next.reset();
      nextTime = 0;
      if (auto done = decodeNext(seconds); !done) return done;
      if (fromStart || (next && nextTime <= seconds + kTimeTolerance)) break;
    }
    positioned = true;
    return {};
  }

  Outcome advance(double seconds) {
    while (next && (!current || nextTime <= seconds + kTimeTolerance)) {
      current = std::move(next);
      next.reset();
      currentTime = nextTime;
      if (auto done = decodeNext(seconds); !done) return done;
    }
    return {};
  }
};

VideoReader::VideoReader(std::unique_ptr<State> state) : state_(std::move(state)) {}
VideoReader::VideoReader(VideoReader&&) noexcept = default;
VideoReader& VideoReader::operator=(VideoReader&&) noexcept = default;
VideoReader::~VideoReader() = default;

Result<VideoReader> VideoReader::open(const std::string& path, int threads) {
  auto state = std::make_unique<State>();
  state->path = path;
  auto format = openInput(path);
  if (!format) return format.error();
  state->format = std::move(*format);
  state->stream = av_find_best_stream(state->format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  if (state->stream < 0) return Error{"no picture in " + path};
  for (unsigned i = 0; i < state->format->nb_streams; ++i) {
    if (static_cast<int>(i) != state->stream) state->format->streams[i]->discard = AVDISCARD_ALL;
  }
  const auto* stream = state->format->streams[state->stream];
  if (stream->codecpar->width <= 0 || stream->codecpar->height <= 0) {
    return Error{"the picture in " + path + " has no size, or one that is too large"};
  }
  auto decoder = openDecoder(*state->format, state->stream, path, threads);
  if (!decoder) return decoder.error();
  state->decoder = std::move(*decoder);
  state->timeBase = av_q2d(stream->time_base);
  if (state->format->start_time != AV_NOPTS_VALUE) {
    state->origin = static_cast<double>(state->format->start_time) / AV_TIME_BASE;
  }
  const auto rate = stream->avg_frame_rate.num > 0 ? stream->avg_frame_rate : stream->r_frame_rate;
  state->frameLength = rate.num > 0 && rate.den > 0 ? av_q2d(av_inv_q(rate)) : 0.04;
  state->steady = stream->avg_frame_rate.num > 0 && stream->r_frame_rate.num > 0 &&
                  std::fabs(av_q2d(stream->avg_frame_rate) / av_q2d(stream->r_frame_rate) - 1) < 0.001;
  const std::string_view name(state->format->iformat->name);
  state->still = name.ends_with("_pipe") || name == "image2";
  return VideoReader(std::move(state));
}

Result<SharedFrame> VideoReader::frameAt(double seconds) {
  auto& s = *state_;
  if (s.still) seconds = 0;
  const bool far =
      !s.positioned ||
      (s.current && seconds < s.currentTime - kTimeTolerance && s.currentTime > kTimeTolerance) ||
      seconds > s.nextTime + kSeekAhead;
  if (far && !(s.still && s.current)) {
    // A file is read from its start without a seek.
    if (s.positioned || seconds > kTimeTolerance) {
      if (auto done = s.seek(seconds); !done) return done.error();
    } else {
      s.positioned = true;
      if (auto done = s.decodeNext(seconds); !done) return done.error();
    }
  }
  if (auto done = s.advance(seconds); !done) return done.error();
  if (!s.current) return Error{"no picture can be decoded in " + s.path};
  if (s.ended && !s.still && seconds > s.currentTime + s.frameLength + kHoldLast) {
    return Error{s.path + " ends at " + FormatMask(s.currentTime + s.frameLength, "0.00") +
                 " s, the clip goes on to " + FormatMask(seconds, "0.00") + " s"};
  }
  return s.current;
}

int VideoReader::width() const { return state_->decoder->width; }
int VideoReader::height() const { return state_->decoder->height; }
bool VideoReader::isStill() const { return state_->still; }

}  // namespace kvo::media
