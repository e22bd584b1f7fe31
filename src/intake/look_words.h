// What the process that looks into files and the program say to each other. A file's path goes there with a
// byte 0 behind it; back come lines of a word and its value, and the line "end".
#pragma once

#include "ports/media_looker.h"

#include <string>
#include <string_view>

namespace kvo {

inline constexpr std::string_view kEndOfLook = "end";

/// The lines of an answer, each with its end. What the values hold in line ends and backslashes is told by
/// signs, so that no text of a file is taken for a line.
std::string lookLines(const MediaLook& look);

/// Takes a line, without its end, into `look`; a line that makes no sense changes nothing.
void readLookLine(std::string_view line, MediaLook& look);

}  // namespace kvo
