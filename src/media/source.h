// A media file as both readers begin with it: opened, with one of its streams and that stream's decoder. For
// this room only.
#pragma once

#include "media/ffmpeg.h"

#include <string>

namespace kvo::media {

struct Source {
  std::string path;
  FormatHandle format;
  CodecHandle decoder;
  int index = 0;  // of the stream

  [[nodiscard]] AVStream& stream() const { return *format->streams[index]; }
  [[nodiscard]] double timeBase() const { return av_q2d(stream().time_base); }
};

/// The stream that is the best of its kind; the packets of all others are left out. Fails with a line that
/// names the file: missing, no stream of the kind (`noneOf`, "no sound in "), no decoder.
Result<Source> openSource(const std::string& path, AVMediaType kind, const char* noneOf, int threads);

/// Opens the file of `source` anew, so that it is read from its first byte on.
Outcome reopen(Source& source);

/// The container's time of the first picture, or of the first sound where there is no picture, in seconds:
/// what counts as the file's start.
double startOf(const AVFormatContext& format);

/// Where the last packet of a stream ends, by those that come at `from` or later, in the container's seconds;
/// 0 when none comes. Moves the reading to the end.
double lastPacketEnd(AVFormatContext& format, const AVStream& stream, double from);

/// Where the sound of a file ends that goes on at `from`, in the container's seconds; 0 when there is none.
double endOfSound(const std::string& path, double from);

/// Whether the container tells the length of each of its streams, and not that of the file for each.
bool tellsLengthOfEach(const AVFormatContext& format);

/// Whether only decoding tells when the first picture is shown, as a recording may begin inside a group of
/// pictures, of which the first cannot be decoded.
bool mustDecodeForStart(const AVFormatContext& format);

}  // namespace kvo::media
