// How a camera was held, as Exif (CIPA DC-008) tells it in a picture file.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvo {

/// 1 (upright) to 8, from the bytes of a JPEG, PNG, WebP or TIFF; 1 for anything else, and where nothing is
/// told. The bytes may be cut off anywhere; what lies beyond their end tells nothing.
int exifOrientation(std::string_view file);

/// True when it takes more than the first `kExifHead` bytes to tell: a TIFF keeps its directory anywhere, a
/// WebP behind the picture.
bool exifMayLieFar(std::string_view head);

inline constexpr std::size_t kExifHead = 256U << 10U;  ///< bytes

}  // namespace kvo
