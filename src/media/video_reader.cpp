#include "media/video_reader.h"

#include "base/numbers.h"
#include "media/deinterlace.h"
#include "media/frame_clock.h"
#include "media/source.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

namespace kvo::media {
namespace {

// A mark is written with a few decimals and a stamp may count milliseconds: a frame that begins this little
// later is meant.
constexpr double kTimeTolerance = 0.00075;
// Ahead by more than this it is cheaper to seek to a key frame than to decode all between.
constexpr double kSeekAhead = 4.0;
// How long the last frame stands when the marks go on behind the file's end.
constexpr double kHoldLast = 0.5;
// Where a seek lands behind the wanted time, the next one aims this much further back, in seconds: some
// containers find a place by its bytes, with the key frame anywhere ahead of it.
constexpr double kStepsBack[] = {0, 1, 3, 9, 27, 81};
constexpr int kMaxBadPackets = 100;  // in a row
// A group of pictures that begins with no key frame is taken as it is after this long, in seconds.
constexpr double kLongestHole = 10;

bool isFaulty(const AVFrame& frame) {
  return frame.decode_error_flags != 0 || (frame.flags & AV_FRAME_FLAG_CORRUPT) != 0;
}

}  // namespace

struct VideoReader::State {
  Source source;
  FrameClock clock;
  PacketHandle packet{av_packet_alloc()};
  int threads = 1;
  DamageList* damage = nullptr;
  std::optional<Deinterlacer> deinterlacer;  // from the first interlaced frame on
  double origin = 0;
  std::optional<double>
      soundEnd;  // seconds after the first picture; looked for when the pictures are at their end
  bool still = false;
  bool atEnd = false;  // the decoder has given everything back
  bool ended = false;  // and the deinterlacer too
  bool positioned = false;
  bool needsKey = false;  // behind a seek into a stream: what comes ahead of a key frame is no picture
  int badPackets = 0;
  double wanted = 0;              // the time that the caller asked for
  double packetTime = 0;          // of the packet that was sent last; 0 when it has none
  double decodedEnd = 0;          // where the last good frame ends
  std::optional<double> faultAt;  // what is shown from here on cannot be decoded
  std::vector<Damage> holes;      // behind the current frame
  SharedFrame current;
  SharedFrame next;
  double currentTime = 0;
  double nextTime = 0;

  // What the container says of how the picture lies goes with each frame.
  void addDisplayMatrix(AVFrame& frame) const {
    if (av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX) != nullptr) return;
    std::size_t size = 0;
    const auto* matrix = av_stream_get_side_data(&source.stream(), AV_PKT_DATA_DISPLAYMATRIX, &size);
    if (matrix == nullptr || size == 0) return;
    if (auto* side = av_frame_new_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX, size)) {
      std::copy_n(matrix, size, side->data);
    }
  }

  // What only the container knows of a frame.
  void complete(AVFrame& frame) const {
    addDisplayMatrix(frame);
    if (frame.sample_aspect_ratio.num == 0) {
      frame.sample_aspect_ratio = source.stream().sample_aspect_ratio;
    }
    const auto order = source.stream().codecpar->field_order;
    if (frame.interlaced_frame == 0 && order > AV_FIELD_PROGRESSIVE && reportsNoFields()) {
      frame.interlaced_frame = 1;
      frame.top_field_first = order == AV_FIELD_TT || order == AV_FIELD_TB ? 1 : 0;
    }
  }

  // Codecs that have no word for fields of their own, so that the container's holds.
  [[nodiscard]] bool reportsNoFields() const {
    const auto* kind = avcodec_descriptor_get(source.decoder->codec_id);
    return kind != nullptr && (kind->props & AV_CODEC_PROP_INTRA_ONLY) != 0;
  }

  // Non-reference frames well ahead of the wanted time are never shown, so they need not be decoded. Where
  // the rate varies the frame that is shown may have begun a while ago.
  void skipAheadOfWanted() const {
    const double margin = clock.steady() ? 1.5 * clock.frameLength() : 4 * clock.frameLength() + 0.2;
    double seconds = 0;
    const bool wellAhead = clock.timeOf(*packet, seconds) && seconds < wanted - margin;
    source.decoder->skip_frame = wellAhead ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
  }

  // Something that belongs at `seconds` cannot be decoded, nor what is made from it: all up to the next key
  // frame.
  void loseFrom(double seconds) {
    if (clock.isFirst() || needsKey) return;
    faultAt = faultAt ? std::min(*faultAt, seconds) : seconds;
  }

  Outcome meetFault(int code) {
    if (++badPackets > kMaxBadPackets) return ffmpegError("cannot decode " + source.path, code);
    loseFrom(std::max(packetTime, decodedEnd));
    return {};
  }

  // Pictures are good again from `seconds` on.
  void closeHole(double seconds) {
    if (seconds > decodedEnd + clock.frameLength() / 2) holes.push_back({source.path, decodedEnd, seconds});
    faultAt.reset();
  }

  // Tells of the hole that lies at a time that is shown.
  void reportHoleAt(double seconds) {
    std::erase_if(holes, [&](const Damage& hole) {
      const bool shown = seconds >= hole.from - kTimeTolerance && seconds < hole.to;
      if (shown && damage != nullptr) damage->add(hole);
      return shown;
    });
  }

  Outcome feed() {
    for (;;) {
      const int got = av_read_frame(source.format.get(), packet.get());
      const auto* io = source.format->pb;
      if (got == AVERROR_EOF || (got < 0 && io != nullptr && io->eof_reached != 0)) {
        avcodec_send_packet(source.decoder.get(), nullptr);
        return {};
      }
      if (got < 0) {
        if (auto done = meetFault(got); !done) return done;
        continue;
      }
      if (packet->stream_index != source.index) {
        av_packet_unref(packet.get());
        continue;
      }
      packetTime = 0;
      static_cast<void>(clock.timeOf(*packet, packetTime));
      skipAheadOfWanted();
      clock.mark(*packet);
      const bool corrupt = (packet->flags & AV_PKT_FLAG_CORRUPT) != 0;
      const int sent = avcodec_send_packet(source.decoder.get(), packet.get());
      av_packet_unref(packet.get());
      if (corrupt) loseFrom(std::max(packetTime, decodedEnd));
      return sent < 0 && sent != AVERROR(EAGAIN) ? meetFault(sent) : Outcome();
    }
  }

  // The next frame out of the decoder; none at the end.
  Outcome decode(SharedFrame& frame) {
    frame = newFrame();
    if (!frame) return Error{"out of memory for a picture of " + source.path};
    for (;;) {
      const int got = avcodec_receive_frame(source.decoder.get(), frame.get());
      if (got >= 0) return {};
      if (got == AVERROR_EOF) {
        frame.reset();
        return {};
      }
      if (got == AVERROR(EAGAIN)) {
        if (auto done = feed(); !done) return done;
      } else if (auto done = meetFault(got); !done) {
        return done;
      }
    }
  }

  // The time of a frame that is to be shown; nothing for one that is not whole.
  std::optional<double> timeOfGood(const AVFrame& frame) {
    const bool key = frame.key_frame != 0;
    if (needsKey && !key) return std::nullopt;
    needsKey = false;
    const bool faulty = isFaulty(frame) && !clock.isFirst();
    const double seconds = clock.timeOf(frame, *source.decoder);
    badPackets = 0;
    if (faulty) loseFrom(seconds);
    if (!faultAt || (seconds < *faultAt && !faulty)) return seconds;
    if ((faulty || !key) && seconds < *faultAt + kLongestHole) return std::nullopt;
    closeHole(seconds);
    return seconds;
  }

  // The next good frame out of the decoder, with its time; none at the end.
  Outcome decodeGood(TimedFrame& good) {
    for (;;) {
      SharedFrame frame;
      if (auto done = decode(frame); !done || !frame) {
        good = {};
        return done;
      }
      const auto seconds = timeOfGood(*frame);
      if (!seconds) continue;
      complete(*frame);
      decodedEnd = *seconds + std::max(clock.frameLength(), lengthOf(*frame));
      good = {std::move(frame), *seconds};
      return {};
    }
  }

  // What a frame says of how long it is shown, seconds.
  [[nodiscard]] double lengthOf(const AVFrame& frame) const {
    return clock.kind() == FrameClock::Kind::Stamps && !clock.steady() && frame.pkt_duration > 0
               ? static_cast<double>(frame.pkt_duration) * clock.timeBase()
               : 0;
  }

  // A good frame goes to `next`, by way of the deinterlacer where there is one.
  Outcome accept(TimedFrame good) {
    if (good.frame->interlaced_frame != 0 && !deinterlacer) deinterlacer.emplace(threads);
    if (deinterlacer) return deinterlacer->push(std::move(good));
    next = std::move(good.frame);
    nextTime = good.seconds;
    return {};
  }

  bool takeDeinterlaced() {
    if (!deinterlacer) return false;
    auto made = deinterlacer->pull();
    if (!made.frame) return false;
    next = std::move(made.frame);
    nextTime = made.seconds;
    return true;
  }

  // Brings one frame more into `next`, or finds the end.
  Outcome decodeNext() {
    while (!takeDeinterlaced() && !next && !ended) {
      if (atEnd) {
        ended = true;
        return {};
      }
      TimedFrame good;
      if (auto done = decodeGood(good); !done) return done;
      if (good.frame) {
        if (auto done = accept(std::move(good)); !done) return done;
        continue;
      }
      atEnd = true;
      if (pictureEnd() > decodedEnd + kHoldLast) closeHole(pictureEnd());
      if (deinterlacer) {
        if (auto done = deinterlacer->end(); !done) return done;
      }
    }
    return {};
  }

  // Where the container says that the pictures end; 0 when it does not.
  [[nodiscard]] double pictureEnd() const {
    const auto length = source.stream().duration;
    return length > 0 && clock.kind() != FrameClock::Kind::Count
               ? static_cast<double>(length) * clock.timeBase()
               : 0;
  }

  // What was decoded is of no use any more.
  void forget() {
    avcodec_flush_buffers(source.decoder.get());
    clock.restart();
    if (deinterlacer) deinterlacer.emplace(threads);
    atEnd = ended = false;
    faultAt.reset();
    holes.clear();
    badPackets = 0;
    current.reset();
    next.reset();
    nextTime = decodedEnd = 0;
    needsKey = false;
  }

  // To the first picture. Where the container cannot find it, the file is opened anew.
  Outcome toStart() {
    const auto first = static_cast<std::int64_t>(std::llround(origin / clock.timeBase()));
    if (clock.kind() == FrameClock::Kind::Stamps &&
        avformat_seek_file(source.format.get(), source.index, INT64_MIN, first, INT64_MAX, 0) >= 0) {
      forget();
      if (auto done = decodeNext(); !done) return done;
      if (next && nextTime <= kTimeTolerance) return {};
    }
    if (auto done = reopen(source); !done) return done;
    forget();
    return decodeNext();
  }

  Outcome seek(double seconds) {
    positioned = true;
    if (clock.kind() == FrameClock::Kind::Count) {
      if (current && seconds >= currentTime) return {};  // they can only be counted on
      return toStart();
    }
    for (const double back : kStepsBack) {
      const double from = seconds - back;
      if (from <= kTimeTolerance) break;
      const auto at =
          static_cast<std::int64_t>(std::floor((from + origin + kTimeTolerance) / clock.timeBase()));
      if (avformat_seek_file(source.format.get(), source.index, INT64_MIN, at, at, AVSEEK_FLAG_BACKWARD) <
          0) {
        continue;
      }
      forget();
      needsKey = !reordersFar(*source.decoder);
      if (auto done = decodeNext(); !done) return done;
      if (next && nextTime <= seconds + kTimeTolerance) return {};
    }
    return toStart();
  }

  Outcome advance(double seconds) {
    while (next && (!current || nextTime <= seconds + kTimeTolerance)) {
      current = std::move(next);
      next.reset();
      currentTime = nextTime;
      if (auto done = decodeNext(); !done) return done;
    }
    return {};
  }

  Outcome goTo(double seconds) {
    wanted = seconds;
    const bool back = current && seconds < currentTime - kTimeTolerance && currentTime > kTimeTolerance;
    const bool farAhead = !ended && seconds > nextTime + kSeekAhead;
    if (!positioned && seconds <= kTimeTolerance) {  // a file is read from its start without a seek
      positioned = true;
      if (auto done = decodeNext(); !done) return done;
    } else if (!positioned || back || farAhead) {
      if (auto done = seek(seconds); !done) return done;
    }
    return advance(seconds);
  }

  // Behind the last picture: it stands as long as the file goes on, and a little longer.
  Outcome checkEnd(double seconds) {
    if (!ended || still || seconds <= decodedEnd + kHoldLast) return {};
    if (!soundEnd) soundEnd = endOfSound(source.path, decodedEnd + origin) - origin;
    const double end = std::max(decodedEnd, *soundEnd);
    if (seconds <= end + kHoldLast) return {};
    return Error{source.path + " ends at " + FormatMask(end, "0.00") + " s, the clip goes on to " +
                 FormatMask(seconds, "0.00") + " s"};
  }
};

VideoReader::VideoReader(std::unique_ptr<State> state) : state_(std::move(state)) {}
VideoReader::VideoReader(VideoReader&&) noexcept = default;
VideoReader& VideoReader::operator=(VideoReader&&) noexcept = default;
VideoReader::~VideoReader() = default;

Result<VideoReader> VideoReader::open(const std::string& path, int threads, DamageList* damage) {
  auto source = openSource(path, AVMEDIA_TYPE_VIDEO, "no picture in ", threads);
  if (!source) return source.error();
  auto state = std::make_unique<State>();
  auto& s = *state;
  s.source = std::move(*source);
  s.threads = threads;
  s.damage = damage;
  const auto& stream = s.source.stream();
  if (stream.codecpar->width <= 0 || stream.codecpar->height <= 0) {
    return Error{"the picture in " + path + " has no size, or one that is too large"};
  }
  s.clock = FrameClock(*s.source.format, stream, *s.source.decoder);
  const std::string_view name(s.source.format->iformat->name);
  s.still = name.ends_with("_pipe") || name == "image2";
  // An AVI whose pictures are reordered may begin with empty places, which its sound does not know of.
  const bool mayBeginLate =
      s.clock.kind() == FrameClock::Kind::DecodeOrder && stream.codecpar->video_delay > 0;
  if (mayBeginLate || mustDecodeForStart(*s.source.format)) {
    TimedFrame first;
    if (auto done = s.decodeGood(first); !done) return done.error();
    if (!first.frame) return Error{"no picture can be decoded in " + path};
    s.origin = first.seconds;
    s.decodedEnd -= s.origin;
    first.seconds = 0;
    s.positioned = true;
    if (auto done = s.accept(std::move(first)); !done) return done.error();
    s.clock.origin(s.origin);
    if (auto done = s.decodeNext(); !done) return done.error();
  } else if (s.clock.kind() == FrameClock::Kind::Stamps) {
    s.origin = startOf(*s.source.format);
    s.clock.origin(s.origin);
  }
  return VideoReader(std::move(state));
}

Result<SharedFrame> VideoReader::frameAt(double seconds) {
  auto& s = *state_;
  if (s.still && s.current) return s.current;
  if (auto done = s.goTo(s.still ? 0 : seconds); !done) return done.error();
  if (!s.current) return Error{"no picture can be decoded in " + s.source.path};
  if (auto done = s.checkEnd(seconds); !done) return done.error();
  s.reportHoleAt(seconds);
  return s.current;
}

double VideoReader::origin() const { return state_->origin; }
int VideoReader::width() const { return state_->source.decoder->width; }
int VideoReader::height() const { return state_->source.decoder->height; }
bool VideoReader::isStill() const { return state_->still; }

}  // namespace kvo::media
