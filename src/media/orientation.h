// How a frame has to be turned to stand upright: cameras write it beside the picture.
#pragma once

#include "media/picture.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kvo::media {

/// A turn by quarters and a mirroring: the sides are swapped first (about the main diagonal), then mirrored.
struct Orientation {
  bool swapsSides = false;
  bool mirrorsAcross = false;  ///< left and right
  bool mirrorsDown = false;    ///< up and down
  bool operator==(const Orientation&) const = default;
};

inline constexpr std::size_t kMatrixBytes = 36;  ///< of a display matrix

/// By a display matrix, of kMatrixBytes.
Orientation orientationOfMatrix(const std::uint8_t* matrix);

/// By the display matrix that the frame carries (ISO/IEC 14496-12, or EXIF of a JPEG); other turns than
/// quarters are taken as the nearest.
Orientation orientationOf(const AVFrame& frame);

/// By what Exif tells, 1 (upright) to 8.
Orientation orientationOfExif(int exif);

/// What Exif tells in a picture file; 1 where it does not, and where the file cannot be read.
int exifOfFile(const std::string& path);

/// Writes the turn beside the frame, where that has none of its own.
void addOrientation(AVFrame& frame, const Orientation& turn);

/// A new picture. Throws std::bad_alloc when memory is short.
Picture oriented(const Picture& picture, const Orientation& turn);

}  // namespace kvo::media
