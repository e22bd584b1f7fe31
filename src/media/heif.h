// Photographs as phones keep them, HEIC and AVIF, by libheif: FFmpeg reads some of them and no parts of
// others. For this room only.
#pragma once

#include "media/picture.h"
#include "ports/media_contents.h"

#include <string>

namespace kvo::media {

/// A file whose head says that it holds a still picture of this kind; of a sequence of pictures FFmpeg makes
/// a film. False also when it cannot be read.
bool isHeif(const std::string& path);

/// By its head. Sides are as the picture is shown, turned upright. Fails with a line that names the file when
/// it is damaged, or too large.
Result<StreamFacts> heifFacts(const std::string& path);

/// The picture, turned upright, in 8 bits of red, green and blue, and alpha where it has any.
Result<SharedFrame> readHeif(const std::string& path);

}  // namespace kvo::media
