// When a decoded picture is shown: by what its container is known to say. For this room only.
#pragma once

#include "media/avi_index.h"

#include <cstdint>

namespace kvo::media {

/// Pictures a second, exactly, where they come at a constant rate; 0 where they do not.
double steadyRateOf(const AVStream& stream);

class FrameClock {
 public:
  /// How the pictures of a file are told their times.
  enum class Kind {
    Stamps,       ///< each carries the time it is shown at
    DecodeOrder,  ///< AVI: each carries its number in the order of decoding; number n is shown at n / rate
    Count,        ///< none carries anything (a bare stream): they are counted from the file's start
  };

  FrameClock() = default;
  FrameClock(const AVFormatContext& format, const AVStream& stream, const AVCodecContext& decoder);

  /// What counts as time 0, in seconds of the container; the time of the picture before moves with it.
  void origin(double seconds);
  /// The next picture is the first one behind a seek.
  void restart();
  /// A packet on its way to the decoder. Where pictures are numbered, it is given its number to carry.
  void mark(AVPacket& packet, AVStream& stream);
  /// Seconds after time 0 at which the picture that was just decoded is shown. Of a constant rate whose
  /// container counts in milliseconds it is the picture's place on the even grid.
  double timeOf(const AVFrame& frame, const AVCodecContext& decoder);
  /// The time that a packet carries; false when it carries none that could be told from it alone.
  bool timeOf(const AVPacket& packet, double& seconds) const;

  [[nodiscard]] Kind kind() const { return kind_; }
  /// No picture has come since the start, or since a seek.
  [[nodiscard]] bool isFirst() const { return first_; }
  [[nodiscard]] double timeBase() const { return timeBase_; }
  /// Nominal length of a picture, seconds.
  [[nodiscard]] double frameLength() const { return frameLength_; }
  /// A constant frame rate.
  [[nodiscard]] bool steady() const { return steady_; }

 private:
  double numbered(const AVFrame& frame, const AVCodecContext& decoder);

  Kind kind_ = Kind::Stamps;
  double timeBase_ = 0;  // seconds
  double origin_ = 0;
  double frameLength_ = 0.04;
  bool steady_ = false;
  bool first_ = true;
  double last_ = 0;  // the time of the picture before
  AviIndex index_;
  std::int64_t number_ = 0;  // and its number, where they are numbered
};

}  // namespace kvo::media
