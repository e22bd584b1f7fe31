// How stills take part in a movie: their length, and how they fit the frame.
#pragma once

#include "editor/tabs/editing.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// Reads DefaultStillDuration and DefaultStillFrameRate from "\RenderStillOpts.dat" beside the program; a
/// file that is missing is written first.
void GetStillOpts(const Editing& e);

struct StillControls {
  double milliseconds = 7000;  ///< Slider1
  int aspect = 0;              ///< Opt_Aspect
  bool individually = false;   ///< Opt_GroupOrIndividual 1
  int selectedClip = 0;        ///< the clip number of the selected line of Lst_Movies, 0 for none
};

/// Writes the controls into every still, or into the selected one.
void ApplyStillSettings(const Editing& e, const StillControls& controls);

/// The duration slider was moved: a change of the user's that becomes the default.
void moveStillSlider(const Editing& e, StillControls& controls, double milliseconds);

int GetStillsInCollection(const Editing& e);

/// The lines of Lst_Movies: a name, 200 blanks and the clip number, so that the number is out of sight.
std::vector<std::string> PopulateStillListBox(const Editing& e);

}  // namespace kvo
