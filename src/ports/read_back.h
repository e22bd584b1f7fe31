// What has been written of a file that is being made, to be read again before it stands.
#pragma once

#include "base/result.h"
#include "ports/files.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kvo {

class ReadBack {
 public:
  ReadBack() = default;
  ReadBack(const ReadBack&) = delete;
  ReadBack& operator=(const ReadBack&) = delete;
  virtual ~ReadBack() = default;

  /// Reads from byte position `at`; the number of bytes, which is less than asked for at the end.
  [[nodiscard]] virtual Result<std::size_t> read(std::uint64_t at, std::span<char> bytes) const = 0;
};

/// Null where a replacement only takes.
inline const ReadBack* readBackOf(const Replacement& replacement) {
  return dynamic_cast<const ReadBack*>(&replacement);
}

}  // namespace kvo
