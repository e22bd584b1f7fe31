// How a frame has to be turned to stand upright: cameras write it beside the picture.
#pragma once

#include "media/picture.h"

namespace kvo::media {

/// A turn by quarters and a mirroring: the sides are swapped first (about the main diagonal), then mirrored.
struct Orientation {
  bool swapsSides = false;
  bool mirrorsAcross = false;  ///< left and right
  bool mirrorsDown = false;    ///< up and down
  bool operator==(const Orientation&) const = default;
};

/// By the display matrix that the frame carries (ISO/IEC 14496-12, or EXIF of a JPEG); other turns than
/// quarters are taken as the nearest.
Orientation orientationOf(const AVFrame& frame);

/// A new picture; empty when memory is short.
Picture oriented(const Picture& picture, const Orientation& turn);

}  // namespace kvo::media
