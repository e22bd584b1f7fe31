// The <transition> element behind a clip, and the end of the clip's track.
#pragma once

#include "editor/timeline/compilation.h"

#include <string>
#include <string_view>

namespace kvo {

struct TransitionOptions {
  std::string Start;     ///< timeline seconds
  std::string Stop;      ///< timeline seconds
  std::string Name;      ///< friendly name
  std::string Duration;  ///< seconds, TransIn / 10
  int ClipNo = 1;
};

/// Appends the element and `</track>` to `trackText`; only `</track>` while KVO2.RenderTransitions is off.
/// Brings the clip's TransIn within its limits.
void AddTransition(const Compilation& c, std::string& trackText, TransitionOptions options);

/// The class identifier behind a friendly name, in its own case; empty for a name that the table does not
/// hold.
std::string_view TransitionFriendlyNameToCLSID(std::string_view name);

}  // namespace kvo
