// What is kept of one media file, and the bytes that it is kept as. Numbers are little-endian:
//
//   offset  bytes
//   0       8      "KVOSKTCH"
//   8       4      version of the format, 1
//   12      4      P, bytes of the media file's path
//   16      8      bytes of the media file
//   24      8      when it was changed, in seconds since the beginning of 1970
//   32      4      N, pictures
//   36      4      1 where the peaks have been made, else 0
//   40      8      M, peaks; 0 where there is no sound
//   48      P      the path
//   then    N times 4: milliseconds, 4: L, L: JPEG, none where there is no picture; by rising times
//   then    M      peaks, kKeptPeaks a second
//   then    8      FNV-1a, 64 bits, of all bytes ahead of it
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

inline constexpr int kKeptPeaks = 100;  ///< a second

struct SketchFile {
  /// The media file in the state that it was drawn in.
  struct Key {
    std::string path;
    std::uint64_t size = 0;    ///< bytes
    std::int64_t changed = 0;  ///< seconds since the beginning of 1970
    bool operator==(const Key&) const = default;
  };
  struct Picture {
    std::uint32_t milliseconds = 0;  ///< from the file's first picture on
    std::string jpeg;                ///< empty where there is no picture
    bool operator==(const Picture&) const = default;
  };

  Key key;
  std::vector<Picture> pictures;     ///< by rising times, each once
  std::optional<std::string> peaks;  ///< a byte each; empty without sound, nothing while they are not made

  [[nodiscard]] const Picture* find(std::uint32_t milliseconds) const;
  /// In the place of one of the same time.
  void add(Picture picture);

  bool operator==(const SketchFile&) const = default;
};

std::string sketchBytes(const SketchFile& sketch);

/// Nothing for bytes that are damaged, cut off, of another version, or no sketch at all.
std::optional<SketchFile> readSketch(std::string_view bytes);

/// FNV-1a, 64 bits.
std::uint64_t sketchSum(std::string_view bytes);

}  // namespace kvo
