// What a preview of a given power is reduced to: the table "\PreviewDefaults.dat" beside the program.
#pragma once

#include "editor/compiler/compilation.h"

#include <string>

namespace kvo {

struct PreviewParams {
  double Scale = 1;  ///< the output size is divided by it
  int Depth = 24;    ///< bits
  Single Rate = 25;  ///< frames a second
  bool Effects = true;
  bool Transitions = true;
};

/// Reads the section of the power value (1 to 10; 0 counts as 10), sets RenderEffects and RenderTransitions,
/// and holds depth and rate to the output's. A rate of 99 is the output rate. A missing file is written
/// first.
PreviewParams GetPreviewParams(const Compilation& c, int power);

/// What the parameters mean, in words, for the label beside the power slider.
std::string ShowUserPreviewParams(const Compilation& c, const PreviewParams& params);

}  // namespace kvo
