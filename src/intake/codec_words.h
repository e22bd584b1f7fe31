// What the probe's report says of the codecs of a Windows Media file, read by substrings, and kept in the
// record of the clip.
#pragma once

#include "core/records/collection.h"
#include "ports/stream_probe.h"

#include <optional>
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

/// The words that the record of clip `number` holds, or else the probe's on the file `path`, which go into
/// the record. All empty, and the record as it was, without a report. The loop runs while the probe is at
/// work: a clip that leaves the list meanwhile gets no words, and one that moves in it keeps its own.
CodecWords GetWMVVer(Collection& collection, int number, const std::string& path, StreamProbe& probe);

/// Whether a report tells of a Windows Media stream.
bool tellsOfWindowsMedia(std::string_view report);

/// Whether the probe finds a Windows Media stream in a file, whatever its name; false when it gives no
/// answer within 3 seconds. The loop runs meanwhile.
bool IsWMV(const std::string& path, StreamProbe& probe);

}  // namespace kvo
