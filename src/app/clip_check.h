// What stands in the way of a good movie, clip by clip.
#pragma once

#include "editor/timeline/compilation.h"

#include <string>
#include <vector>

namespace kvo {

/// Faults that make a render fail or give something else than the collection says, as words for a person.
/// The clip has been compiled before, so that its times are known.
std::vector<std::string> clipFaults(const Compilation& c, int clipNo);

/// Values beyond their range, and what a compile holds them to.
std::vector<std::string> clipClamps(const Movie& clip);

}  // namespace kvo
