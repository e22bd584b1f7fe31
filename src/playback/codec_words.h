// What the probe's report says of the codecs of a Windows Media file, read by substrings, and kept in the
// record of the clip.
#pragma once

#include "core/records/movie.h"
#include "ports/stream_probe.h"

#include <string>
#include <string_view>

namespace kvo {

struct CodecWords {
  std::string videoCodec;    ///< "WMV9"; empty when the report does not tell
  std::string videoBitRate;  ///< as the report spells it, without its unit
  std::string audioCodec;    ///< "WMA V9"; "Unknown" when the report does not tell
  std::string audioBitRate;
  bool isDrm = false;  ///< protected
  bool seekable = true;
  bool operator==(const CodecWords&) const = default;
};

/// Reads a report; where several words for a codec are in it, the last of our table holds. `extension` is
/// the file's, in capitals.
CodecWords readCodecWords(std::string_view report, std::string_view extension);

/// The words that the record holds, or else the probe's, which go into the record. All empty, and the record
/// as it was, without a report.
CodecWords GetWMVVer(Movie& clip, const std::string& path, StreamProbe& probe);

}  // namespace kvo
