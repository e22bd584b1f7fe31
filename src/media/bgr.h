// Pictures as packed blue, green, red bytes and back.
#pragma once

#include "media/picture.h"

#include <cstddef>
#include <cstdint>

namespace kvo::media {

/// Writes `picture`'s colours as rows of 3 bytes a pixel, `stride` bytes apart. Of a picture with alpha these
/// are the colours as they are without it; where nothing covers, black.
void toBgr(const Picture& picture, std::uint8_t* bgr, std::size_t stride);

/// Sets the colours of `canvas` from such rows, as many and as wide as it is; its alpha stays, and weighs
/// them.
void fromBgr(const std::uint8_t* bgr, std::size_t stride, Canvas& canvas);

}  // namespace kvo::media
