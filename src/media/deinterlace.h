// Makes one whole picture of the two half pictures of an interlaced frame.
#pragma once

#include "media/picture.h"

namespace kvo::media {

/// The first field as it is; of the second what moved meanwhile is filled in from the first. A format whose
/// samples are no plain bytes in planes is given back as it is. Null when memory is short.
SharedFrame deinterlaced(const SharedFrame& frame);

}  // namespace kvo::media
