#include "media/picture_feed.h"

#include <algorithm>
#include <cmath>
#include <utility>

extern "C" {
#include <libavutil/parseutils.h>
}

namespace kvo::media {
namespace {

// A hole that no key frame ends is taken for one no longer than this, in seconds.
constexpr double kLongestHole = 10;
// Of a constant rate pictures are lost where the next one comes this much later, in frames and in seconds;
// less may have been left out on purpose. Where non-reference frames are skipped there are gaps of their
// length.
constexpr double kLostFrames = 3.5;
constexpr double kLostSeconds = 0.15;
constexpr double kLostWhileSkipping = 1;
// A container that promises pictures for this much longer, in seconds, has lost them.
constexpr double kLostEnd = 0.5;

bool isFaulty(const AVFrame& frame) {
  return frame.decode_error_flags != 0 || (frame.flags & AV_FRAME_FLAG_CORRUPT) != 0;
}

// What the container says of how the picture lies goes with each frame.
void addDisplayMatrix(AVFrame& frame, const AVStream& stream) {
  if (av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX) != nullptr) return;
  std::size_t size = 0;
  const auto* matrix = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
  if (matrix == nullptr || size == 0) return;
  if (auto* side = av_frame_new_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX, size)) {
    std::copy_n(matrix, size, side->data);
  }
}

// Codecs that have no word for fields of their own, so that the container's holds.
bool reportsNoFields(AVCodecID codec) {
  const auto* kind = avcodec_descriptor_get(codec);
  return kind != nullptr && (kind->props & AV_CODEC_PROP_INTRA_ONLY) != 0;
}

}  // namespace

Result<PictureFeed> PictureFeed::open(const std::string& path, int threads) {
  auto source = Source::open(path, AVMEDIA_TYPE_VIDEO, "no picture in ", threads);
  if (!source) return source.error();
  PictureFeed feed;
  feed.source_ = std::move(*source);
  feed.threads_ = threads;
  const auto& stream = feed.source_.stream();
  if (stream.codecpar->width <= 0 || stream.codecpar->height <= 0) {
    return Error{"the picture in " + path + " is damaged, or too large"};
  }
  if (feed.source_.traits().isStill) feed.turn_ = orientationOfExif(exifOfFile(path));
  feed.clock_ = FrameClock(feed.source_.format(), stream, feed.source_.decoder());
  if (auto done = feed.findStart(); !done) return done.error();
  return feed;
}

Outcome PictureFeed::findStart() {
  // An AVI whose pictures are reordered may begin with empty places, which its sound does not know of.
  const bool mayBeginLate =
      clock_.kind() == FrameClock::Kind::DecodeOrder && source_.stream().codecpar->video_delay > 0;
  if (!mayBeginLate && !mustDecodeForStart(source_.format())) {
    if (clock_.kind() == FrameClock::Kind::Stamps) origin_ = startOf(source_.format());
    clock_.origin(origin_);
    return {};
  }
  TimedFrame first;
  if (auto done = decodeGood(first, 0); !done) return done;
  if (!first.frame) return Error{"no picture can be decoded in " + source_.path()};
  origin_ = first.seconds;
  clock_.origin(origin_);
  end_ -= origin_;
  packetsEnd_ -= origin_;
  first.seconds = 0;
  return accept(std::move(first));
}

// What only the container knows of a frame.
void PictureFeed::complete(AVFrame& frame) const {
  const auto& stream = source_.stream();
  addDisplayMatrix(frame, stream);
  addOrientation(frame, turn_);
  frame.sample_aspect_ratio = av_guess_sample_aspect_ratio(&source_.format(), &source_.stream(), &frame);
  const auto order = stream.codecpar->field_order;
  if (frame.interlaced_frame == 0 && order > AV_FIELD_PROGRESSIVE &&
      reportsNoFields(stream.codecpar->codec_id)) {
    frame.interlaced_frame = 1;
    frame.top_field_first = order == AV_FIELD_TT || order == AV_FIELD_TB ? 1 : 0;
  }
}

// Something that belongs at `seconds` cannot be decoded, nor what is made from it: all up to the next key
// frame.
void PictureFeed::loseFrom(double seconds) {
  if (clock_.isFirst() || needsKey_) return;
  faultAt_ = faultAt_ ? std::min(*faultAt_, seconds) : seconds;
}

// Pictures are good again from `seconds` on.
void PictureFeed::closeHole(double seconds) {
  if (seconds > end_ + clock_.frameLength() / 2)
    holes_.push_back({source_.path(), Lost::Picture, end_, seconds});
  faultAt_.reset();
}

// Non-reference frames well ahead of the wanted time are never shown, so they need not be decoded. Where the
// rate varies the frame that is shown may have begun a while ago.
bool PictureFeed::isLeftOut(const AVPacket& packet, double wanted) const {
  const double margin = clock_.steady() ? 1.5 * clock_.frameLength() : 4 * clock_.frameLength() + 0.2;
  double seconds = 0;
  return clock_.kind() == FrameClock::Kind::Stamps && clock_.timeOf(packet, seconds) &&
         seconds < wanted - margin;
}

// A packet on its way to the decoder.
void PictureFeed::mark(AVPacket& packet, double wanted) {
  packetTime_ = 0;
  if (clock_.timeOf(packet, packetTime_))
    packetsEnd_ = std::max(packetsEnd_, packetTime_ + clock_.frameLength());
  source_.decoder().skip_frame = isLeftOut(packet, wanted) ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
  clock_.mark(packet, source_.stream());
  if ((packet.flags & AV_PKT_FLAG_CORRUPT) != 0) loseWhatIsRead();
}

// Whether pictures are missing between the last one and one at `seconds`.
bool PictureFeed::followsAGap(double seconds, double wanted) const {
  const double least = end_ < wanted ? kLostWhileSkipping : kLostSeconds;
  return clock_.steady() && !onlyForward() &&
         seconds - end_ > std::max(least, kLostFrames * clock_.frameLength());
}

// The time of a frame that is to be shown; nothing for one that is not whole.
std::optional<double> PictureFeed::timeOfGood(const AVFrame& frame, double wanted) {
  const bool key = frame.key_frame != 0;
  if (needsKey_ && !key) return std::nullopt;
  needsKey_ = false;
  const bool first = clock_.isFirst();
  const double seconds = clock_.timeOf(frame, source_.decoder());
  const bool faulty = isFaulty(frame) && !first;
  if (faulty || (!first && followsAGap(seconds, wanted))) loseFrom(seconds);
  if (!faultAt_ || (seconds < *faultAt_ && !faulty)) return seconds;
  if ((faulty || !key) && seconds < *faultAt_ + kLongestHole) return std::nullopt;
  closeHole(seconds);
  return seconds;
}

// The next whole frame, with its time; none at the end.
Outcome PictureFeed::decodeGood(TimedFrame& good, double wanted) {
  const Source::Watch watch{[&](AVPacket& packet) { mark(packet, wanted); }, [this] { loseWhatIsRead(); }};
  for (;;) {
    good = {};
    auto frame = source_.next(watch);
    if (!frame) return frame.error();
    if (!*frame) return {};
    const auto seconds = timeOfGood(**frame, wanted);
    if (!seconds) continue;
    complete(**frame);
    end_ = *seconds + std::max(clock_.frameLength(), lengthOf(**frame));
    good = {std::move(*frame), *seconds};
    return {};
  }
}

// What a frame says of how long it is shown, seconds.
double PictureFeed::lengthOf(const AVFrame& frame) const {
  return clock_.kind() == FrameClock::Kind::Stamps && !clock_.steady() && frame.pkt_duration > 0
             ? static_cast<double>(frame.pkt_duration) * clock_.timeBase()
             : 0;
}

// Where the container says that the pictures end; 0 when it does not.
double PictureFeed::promisedEnd() const {
  if (source_.traits().tellsLengthOfEach)
    return static_cast<double>(std::max<std::int64_t>(source_.stream().duration, 0)) * clock_.timeBase();
  // Matroska's writers leave it beside the stream: "00:01:30.040000000".
  const auto* tag = av_dict_get(source_.stream().metadata, "DURATION", nullptr, 0);
  std::int64_t length = 0;
  return tag != nullptr && av_parse_time(&length, tag->value, 1) >= 0
             ? static_cast<double>(length) / AV_TIME_BASE - origin_
             : 0;
}

Outcome PictureFeed::accept(TimedFrame good) {
  if (good.frame->interlaced_frame != 0 && !deinterlacer_) deinterlacer_.emplace(threads_);
  if (deinterlacer_) return deinterlacer_->push(std::move(good));
  ready_ = std::move(good);
  return {};
}

Outcome PictureFeed::finish() {
  finished_ = true;
  // What was read but could not be decoded, and what the container promised, is a hole up to the end.
  const double known = std::max(packetsEnd_, promisedEnd());
  if ((faultAt_ && known > end_) || known > end_ + kLostEnd) closeHole(known);
  return deinterlacer_ ? deinterlacer_->end() : Outcome();
}

Result<TimedFrame> PictureFeed::next(double wanted) {
  for (;;) {
    auto ready = deinterlacer_ ? deinterlacer_->pull() : std::exchange(ready_, {});
    if (ready.frame || finished_) return ready;
    TimedFrame good;
    if (auto done = decodeGood(good, wanted); !done) return done.error();
    auto done = good.frame ? accept(std::move(good)) : finish();
    if (!done) return done.error();
  }
}

// What was decoded is of no use any more.
void PictureFeed::forget() {
  clock_.restart();
  if (deinterlacer_) deinterlacer_.emplace(threads_);
  ready_ = {};
  finished_ = needsKey_ = false;
  faultAt_.reset();
  holes_.clear();
  end_ = packetsEnd_ = 0;
}

Outcome PictureFeed::toStart() {
  if (auto done = source_.reopen(); !done) return done;
  forget();
  return {};
}

// A key frame is shown later than it is decoded, by the pictures that the decoder holds back.
bool PictureFeed::keyLiesBetween(double from, double seconds) const {
  const double held = (source_.decoder().has_b_frames + 1) * clock_.frameLength();
  const auto key = source_.keyAt(seconds + origin_ - held);
  return key && *key - origin_ > from;
}

bool PictureFeed::seek(double seconds) {
  if (!source_.seek(seconds + origin_)) return false;
  forget();
  // H.264 tells by itself from where on its pictures are whole, with key pictures or without.
  needsKey_ = source_.decoder().codec_id != AV_CODEC_ID_H264;
  return true;
}

}  // namespace kvo::media
