// What every target is made of: it says what becomes of the bytes, and what has to hold of that.
#pragma once

#include <string_view>

namespace kvo {

/// Defined by each target. The bytes end where their memory does.
void fuzz(std::string_view bytes);

/// Ends the run where something does not hold.
void require(bool holds);

}  // namespace kvo
