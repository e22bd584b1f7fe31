// What is known of media files as text, a line each, so that a later run need not open them for it.
#pragma once

#include "ports/media_contents.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvo {

/// A file in a state of which facts are known.
struct KnownFile {
  std::string path;
  std::uint64_t size = 0;    ///< bytes
  std::int64_t changed = 0;  ///< as the file system counts
  StreamFacts facts;
};

/// Without an end of line; empty for a path that no line can hold.
std::string lineOf(const KnownFile& file);

/// Nothing for a line that makes no sense.
std::optional<KnownFile> fileIn(std::string_view line);

}  // namespace kvo
