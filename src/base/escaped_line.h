// Any text as one line: its line ends and backslashes are told by signs.
#pragma once

#include <string>
#include <string_view>

namespace kvo {

/// LF becomes "\n", CR "\r" and a backslash two of them.
std::string escapedLine(std::string_view text);

/// The text again. A backslash ahead of any other character, or at the end, stands for what follows it alone.
std::string unescapedLine(std::string_view line);

}  // namespace kvo
