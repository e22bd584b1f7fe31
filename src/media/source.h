// One stream of a media file: opened, sought, and read through its decoder; and where streams begin and end.
// For this room only.
#pragma once

#include "media/container_traits.h"
#include "media/ffmpeg.h"
#include "media/picture.h"

#include <functional>
#include <optional>
#include <string>

namespace kvo::media {

class Source {
 public:
  /// What a reader has to say on the way: `packet` sees each packet of the stream ahead of the decoder and
  /// may correct it; `fault` is called when something that was read cannot be decoded.
  struct Watch {
    std::function<void(AVPacket&)> packet;
    std::function<void()> fault;
  };

  /// The stream that is the best of its kind; the packets of all others are left out. `threads` of the
  /// decoder; 0 lets it choose. Fails with a line that names the file: missing, no stream of the kind
  /// (`noneOf`, "no sound in "), no decoder.
  static Result<Source> open(const std::string& path, AVMediaType kind, const char* noneOf, int threads);

  /// The next frame out of the decoder, damaged ones among them; null at the end.
  Result<SharedFrame> next(const Watch& watch);

  /// What begins at `seconds` of the container's time, or some time ahead of it, comes next: false when it
  /// finds no such place, and then nothing has changed.
  bool seek(double seconds);
  /// Where the last key frame stands that the container knows of at `seconds` or ahead, in the container's
  /// seconds of decoding; nothing where it knows of none.
  [[nodiscard]] std::optional<double> keyAt(double seconds) const;
  /// Opens the file anew, so that it is read from its first byte on. Fails when it is not the same any more.
  Outcome reopen();

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] AVFormatContext& format() const { return *format_; }
  [[nodiscard]] AVStream& stream() const { return *format_->streams[index_]; }
  [[nodiscard]] AVCodecContext& decoder() const { return *decoder_; }
  [[nodiscard]] const ContainerTraits& traits() const { return traitsOf(*format_); }
  /// Seconds of a unit of the stream's times.
  [[nodiscard]] double timeBase() const { return av_q2d(stream().time_base); }

 private:
  void send(const Watch& watch);
  bool read(const Watch& watch);
  void forget();

  std::string path_;
  FormatHandle format_;
  CodecHandle decoder_;
  PacketHandle packet_ = newPacket();
  int index_ = 0;       // of the stream
  int readErrors_ = 0;  // in a row
};

/// The container's time of the first picture, or of the first sound where there is no picture, in seconds:
/// what counts as the file's start.
double startOf(const AVFormatContext& format);

/// Whether only decoding tells when the first picture is shown.
bool mustDecodeForStart(const AVFormatContext& format);

/// Where the last packet of a stream ends, by those that come at `from` or later, in the container's seconds;
/// 0 when none comes. Moves the reading to the end.
double lastPacketEnd(AVFormatContext& format, const AVStream& stream, double from);

/// Where the sound of a file ends that goes on at `from`, in the container's seconds; 0 when there is none.
double endOfSound(const std::string& path, double from);

}  // namespace kvo::media
