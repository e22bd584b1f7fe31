// The port to JPEG. It is decoded small where it is shown small: a large photograph is never held in full
// for that.
#pragma once

#include "base/result.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kvo {

struct JpegSize {
  int width = 0;  ///< pixels
  int height = 0;
};

/// A side, or a height, at 1/scale: rounded up.
constexpr int jpegSide(int side, int scale) { return (side + scale - 1) / scale; }

class Jpeg {
 public:
  Jpeg() = default;
  Jpeg(const Jpeg&) = delete;
  Jpeg& operator=(const Jpeg&) = delete;
  virtual ~Jpeg() = default;

  /// What the head of the file tells; fails on what is no JPEG file.
  [[nodiscard]] virtual Result<JpegSize> size(std::string_view file) const = 0;

  /// Decodes at 1/scale, which is 1, 2, 4 or 8: blue, green, red, row upon row from the top, `stride` bytes
  /// from one to the next. Fails, with `rows` in any state, on a damaged file, a kind of colour that it does
  /// not know, a file that needs more memory than the decoder is given, and `rows` that do not hold the
  /// picture.
  virtual Outcome decode(std::string_view file, int scale, std::span<std::uint8_t> rows,
                         std::size_t stride) const = 0;

  /// Encodes such rows, without gaps between them, at a quality of 1 to 100. Fails where `rows` do not hold
  /// a picture of this size, or it is larger than the format can be.
  [[nodiscard]] virtual Result<std::string> encode(JpegSize size, std::span<const std::uint8_t> rows,
                                                   int quality) const = 0;
};

}  // namespace kvo
