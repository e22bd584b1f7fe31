// Work that goes on in the background, in a few words: what a window shows of it beside everything else.
#pragma once

#include <string>

namespace kvo {

struct WorkGlance {
  std::string text;    ///< composed: "43%, 2 renders wait"; empty while there is nothing to tell
  std::string about;   ///< composed: what it is, and what is wrong with it
  double share = 0;    ///< of what is being made, 0 to 1
  bool isBad = false;  ///< something has gone wrong
  bool operator==(const WorkGlance&) const = default;
};

}  // namespace kvo
