#include "media/frame_clock.h"

#include "media/container_traits.h"

#include <cmath>

namespace kvo::media {
namespace {

// Containers that count in milliseconds put the first picture and each other one up to half of one beside
// its time.
constexpr double kStampError = 0.0011;

FrameClock::Kind kindOf(const AVFormatContext& format, const AVStream& stream) {
  if (traitsOf(format).numbersChunks) return FrameClock::Kind::DecodeOrder;
  const bool tellsNothing =
      (format.iformat->flags & AVFMT_NOTIMESTAMPS) != 0 || stream.start_time == AV_NOPTS_VALUE;
  return tellsNothing ? FrameClock::Kind::Count : FrameClock::Kind::Stamps;
}

bool isKnown(AVRational rate) { return rate.num > 0 && rate.den > 0; }

// Whether a decoder may put a picture behind several later ones (and tells by itself from where on it can
// show them); all others put it behind the next one that pictures are made from.
bool reordersFar(const AVCodecContext& decoder) {
  return decoder.codec_id == AV_CODEC_ID_H264 || decoder.codec_id == AV_CODEC_ID_HEVC;
}

}  // namespace

double steadyRateOf(const AVStream& stream) {
  const auto average = stream.avg_frame_rate;
  const auto guessed = stream.r_frame_rate;  // one of the usual rates, exactly, where the pictures keep one
  constexpr double kSame = 0.001;
  const bool steady =
      isKnown(average) && isKnown(guessed) && std::fabs(av_q2d(average) / av_q2d(guessed) - 1) < kSame;
  return steady ? av_q2d(guessed) : 0;
}

FrameClock::FrameClock(const AVFormatContext& format, const AVStream& stream, const AVCodecContext& decoder)
    : kind_(kindOf(format, stream)), timeBase_(av_q2d(stream.time_base)) {
  const auto average = stream.avg_frame_rate;
  const auto guessed = stream.r_frame_rate;
  steady_ = steadyRateOf(stream) > 0;
  auto rate = steady_ || !isKnown(average) ? guessed : average;
  // What a bare stream has of a rate stands in itself.
  if (kind_ == Kind::Count && isKnown(decoder.framerate)) rate = decoder.framerate;
  if (isKnown(rate)) frameLength_ = av_q2d(av_inv_q(rate));
  if (kind_ == Kind::DecodeOrder) frameLength_ = timeBase_;
  if (kind_ != Kind::Stamps) steady_ = true;
}

void FrameClock::origin(double seconds) {
  last_ += origin_ - seconds;
  origin_ = seconds;
}

void FrameClock::restart() {
  first_ = true;
  last_ = 0;
  number_ = 0;
}

void FrameClock::mark(AVPacket& packet, AVStream& stream) {
  if (kind_ != Kind::DecodeOrder) return;
  index_.correct(packet, stream);
  packet.pts = packet.dts;
}

// A decoder that holds a picture back until the next one that others are made from has come gives it out
// with that one's number, which is the picture's own in the order of showing, and one more. Decoders that
// reorder further begin anew at a key picture, ahead of which all others have been shown.
double FrameClock::numbered(const AVFrame& frame, const AVCodecContext& decoder) {
  const auto after = first_ ? 0 : number_ + 1;
  if (!reordersFar(decoder)) {
    number_ = frame.pkt_dts == AV_NOPTS_VALUE ? after : frame.pkt_dts - decoder.has_b_frames;
  } else if (frame.pts != AV_NOPTS_VALUE && (first_ || (frame.key_frame != 0 && frame.pts > after))) {
    number_ = frame.pts;
  } else {
    number_ = after;
  }
  return static_cast<double>(number_) * timeBase_ - origin_;
}

double FrameClock::timeOf(const AVFrame& frame, const AVCodecContext& decoder) {
  double seconds = first_ ? 0 : last_ + frameLength_;
  if (kind_ == Kind::DecodeOrder) {
    seconds = numbered(frame, decoder);
  } else if (kind_ == Kind::Stamps && frame.best_effort_timestamp != AV_NOPTS_VALUE) {
    seconds = static_cast<double>(frame.best_effort_timestamp) * timeBase_ - origin_;
    const double even = std::round(seconds / frameLength_) * frameLength_;
    if (steady_ && std::fabs(seconds - even) <= kStampError) seconds = even;
  }
  first_ = false;
  last_ = seconds;
  return seconds;
}

bool FrameClock::timeOf(const AVPacket& packet, double& seconds) const {
  if (kind_ == Kind::Count || (kind_ == Kind::Stamps ? packet.pts : packet.dts) == AV_NOPTS_VALUE)
    return false;
  seconds = static_cast<double>(kind_ == Kind::Stamps ? packet.pts : packet.dts) * timeBase_ - origin_;
  return true;
}

}  // namespace kvo::media
