// Which codec an AVI file wants, by what its first bytes hold; who made that codec and where it is to be had,
// by the table "Fourcc.dat" beside the program.
#pragma once

#include "base/paths.h"
#include "core/records/movie.h"
#include "ports/files.h"
#include "ports/stream_probe.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvo {

inline constexpr std::string_view kUnknownCodec = "Unknown";

/// A record of "Fourcc.dat".
struct CodecDescription {
  std::string developer;
  std::string address;  ///< on the web; empty when there is none any more
  std::string notes;
  bool operator==(const CodecDescription&) const = default;
};

/// The record of a code, in any case and with blanks about it; nothing when the table has none, or cannot be
/// read. Fields are apart at commas; one in quotes may hold commas.
std::optional<CodecDescription> GetCodecDesc(const Files& files, const ProgramFolder& folder,
                                             std::string_view code);

/// The same; "Unknown", "Unknown" and "N/A" without a record.
CodecDescription describedCodec(const Files& files, const ProgramFolder& folder, std::string_view code);

/// How much of a file is looked at, bytes.
inline constexpr std::size_t kAviHead = 300;

/// A clip whose codec is told by its first bytes: AVI and VCR, by its name.
bool isAviKind(const Movie& clip);

/// The first of our codes, in our order, that occurs anywhere in the first 300 bytes of `head`, in any case;
/// "Unknown" when none does.
std::string codecInHead(std::string_view head);

/// False for "Unknown", and for what says no more than that the file is an AVI.
bool namesCodec(std::string_view codec);

struct AviCompressor {
  std::string codec = std::string(kUnknownCodec);  ///< "DIVX", "Uncompressed", "Unknown"
  CodecDescription description;                    ///< "Unknown", "Unknown" and "N/A" without a record
  bool isKnown = false;                            ///< a code was found
  bool isWindowsMedia = false;                     ///< none was, and the probe finds a Windows Media stream
};

struct AviLookPorts {
  const Files& files;
  const ProgramFolder& folder;
  StreamProbe& probe;  ///< asked only where no code is found; the loop runs meanwhile
};

/// What an AVI file is made with. A file that cannot be read is "Unknown".
AviCompressor GetAVICompressor(const AviLookPorts& ports, const std::string& path);

}  // namespace kvo
