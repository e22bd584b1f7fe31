// The volume envelope of one clip in the audio group. Its times count from the clip's start on the timeline.
#pragma once

#include "editor/compiler/compilation.h"

#include <string>
#include <string_view>

namespace kvo {

struct LevelingOptions {
  int ClipNo = 1;
  std::string StartText;  ///< start="4", or a plain number
  std::string StopText;
  double FadeIn = 0;          ///< seconds
  double FadeOut = 0;         ///< seconds
  std::string AutoFadeIn{};   ///< seconds, empty for none
  std::string AutoFadeOut{};  ///< seconds from the clip's start, empty for none
  bool Silent = false;
  bool WithFades = false;
};

/// Appends the envelope and `</clip>`. Only the first silent clip of a pass gets an envelope.
void AddLevelingInfo(const Compilation& c, std::string& trackText, const LevelingOptions& options);

/// An envelope of one level over `length` seconds, without `</clip>`.
std::string constantEnvelope(double length, Single level);

}  // namespace kvo
