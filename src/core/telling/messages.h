// The numbered texts of the program.
#pragma once

#include <string_view>

namespace kvo {

/// Text number `number`. A number that the table does not hold is a fault of the caller: a debug build stops,
/// a release build says so on standard error and gives an empty text.
std::string_view LoadResString(int number);

}  // namespace kvo
