// What a preview of a given power is reduced to: the table "\PreviewDefaults.dat" beside the program.
#pragma once

#include "editor/tabs/editing.h"

#include <string>

namespace kvo {

/// Reads the section of the power value (1 to 10; 0 counts as 10), sets RenderEffects and RenderTransitions,
/// and holds depth and rate to the output's. A rate of 99 is the output rate. A missing file is written
/// first.
PreviewParams GetPreviewParams(const Editing& e, int power);

/// What the parameters mean, in words, for the label beside the power slider.
std::string ShowUserPreviewParams(const Editing& e, const PreviewParams& params);

}  // namespace kvo
