// A frame of a clip as a still of its own.
#pragma once

#include "core/records/movie.h"
#include "ports/media_contents.h"

#include <string>
#include <string_view>

namespace kvo {

/// Clips of ten extensions give none, nor do those that have no size.
bool hasSnapshot(const Movie& clip);

/// "lake at dusk - f00104 - Still.bmp"
std::string snapshotName(const Movie& clip, Long frame);

/// The bytes of a bitmap file of 24 bits a pixel.
std::string bitmapFile(const FramePicture& picture);

}  // namespace kvo
