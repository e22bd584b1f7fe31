// Pictures as PNG files (RFC 2083).
#pragma once

#include "base/result.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kvo::media {

/// The bytes of a PNG file, from `height` rows of `width` pixels of blue, green and red bytes; rows are
/// `stride` bytes apart. Fails when memory is short.
Result<std::string> encodePng(const std::uint8_t* bgr, std::size_t stride, int width, int height);

}  // namespace kvo::media
