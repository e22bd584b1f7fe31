// What a player would make of a file, found out by reading no more of it than has to be.
#pragma once

#include "ports/media_looker.h"

#include <string>

namespace kvo::media {

/// What it holds, what it says of itself, and why it cannot be played where it cannot.
MediaLook lookInto(const std::string& path);

}  // namespace kvo::media
