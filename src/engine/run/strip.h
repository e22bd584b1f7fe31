// A few frames of a document, evenly from its first to its last: what a small moving sample is made of.
#pragma once

#include "base/result.h"
#include "ports/frame_source.h"

#include <string>
#include <vector>

namespace kvo::engine {

/// Of the size of the document. Fails with the line of one that makes no sense or cannot be drawn.
Result<std::vector<FramePicture>> drawStrip(std::string document, int frames);

}  // namespace kvo::engine
