// Reads a profile file of Windows Media: what a stream configuration of each kind says.
#pragma once

#include "base/result.h"
#include "vocabulary/encode_profiles.h"

#include <optional>
#include <string>

namespace kvo::engine {

/// Bytes: a profile file that is larger is none.
inline constexpr std::uint64_t kMaxProfileFile = 1U << 20U;

/// `bytes` are UTF-16, little endian, with or without a byte order mark. Nothing where the file holds no
/// profile; fails, with a line without the file's name, for what is no profile file and where a stream says
/// what cannot be made.
Result<std::optional<EncodeProfile>> readProfileFile(std::string bytes);

}  // namespace kvo::engine
