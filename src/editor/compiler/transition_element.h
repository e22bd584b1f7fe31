// The <transition> element behind a clip, and the end of the clip's track.
#pragma once

#include "editor/compiler/compilation.h"

#include <string>

namespace kvo {

struct TransitionOptions {
  std::string Start{};     ///< timeline seconds
  std::string Stop{};      ///< timeline seconds
  std::string Name{};      ///< friendly name
  std::string Duration{};  ///< seconds, TransIn / 10
  int ClipNo = 1;
  int BorderWidth = 0;        ///< held to 0 to 255
  std::string BorderColor{};  ///< as the record has it
  Single BorderSoftness = 0;  ///< held to 0 to 255
  int ReplicateX = 1;         ///< held to 1 to 255
  int ReplicateY = 1;         ///< held to 1 to 255
  std::string MaskName{};     ///< a picture as the mask; empty for none
  bool UseDefaults = true;    ///< particles as each transition has them, not as the settings do
};

/// What the clip's record says of the transition into it, between the two timeline times.
TransitionOptions recordedTransition(const Compilation& c, int clipNo, std::string start, std::string stop);

/// Appends the element and `</track>` to `trackText`; only `</track>` while KVO2.RenderTransitions is off.
/// Brings the clip's TransIn within its limits.
void AddTransition(const Compilation& c, std::string& trackText, TransitionOptions options);

}  // namespace kvo
