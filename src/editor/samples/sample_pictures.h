// Pictures of samples on their way into the engine and out of it.
#pragma once

#include "media/picture.h"
#include "ports/media_contents.h"

#include <cstdint>

namespace kvo {

media::Picture pictureOf(const FramePicture& picture);
FramePicture bytesOf(const media::Picture& picture);

/// A picture of one colour.
FramePicture plainPicture(int width, int height, std::uint8_t red, std::uint8_t green, std::uint8_t blue);

}  // namespace kvo
