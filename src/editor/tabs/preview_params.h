// What a preview of a given power is reduced to: the table "\PreviewDefaults.dat" beside the program.
#pragma once

#include "editor/tabs/editing.h"

#include <array>
#include <string>

namespace kvo {

/// Reads the section of the power value (1 to 10; 0 counts as 10), sets RenderEffects and RenderTransitions,
/// and holds depth and rate to the output's. A rate of 99 is the output rate. A missing file is written
/// first.
PreviewParams GetPreviewParams(const Editing& e, int power);

/// A line of what a preview leaves of the movie.
struct PreviewLine {
  enum class Sign { Note, Shown, NotShown };  ///< of what it has, or has not

  std::string text;  ///< composed
  Sign sign = Sign::Note;
  bool operator==(const PreviewLine&) const = default;
};
/// Size, aspect ratio, colours, frames a second, transitions, effects.
using PreviewLines = std::array<PreviewLine, 6>;

PreviewLines previewLines(const Editing& e, const PreviewParams& params);

/// The same as one text, with the empty lines between them.
std::string ShowUserPreviewParams(const Editing& e, const PreviewParams& params);

}  // namespace kvo
