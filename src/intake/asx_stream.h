// Whether a file is no media itself but tells where a stream is.
#pragma once

#include "core/records/movie.h"
#include "ports/files.h"

namespace kvo {

/// True for a clip that counts as a stream already, and for a file of the kinds that tell of streams which
/// holds an address in its first 64 KiB, other than that of a page with more information.
bool IsASXAStream(const Movie& clip, const Files& files);

}  // namespace kvo
