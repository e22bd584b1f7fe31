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

/// Seconds that a still is shown: its own, or the default ones where it has none.
double stillSeconds(const Editing& e, const Movie& still);

/// Each still has options of its own: the user says so, or they differ.
bool stillsAreIndividual(const Editing& e);

/// Writes the controls into every still, or into the selected one. What differs by less than the slider can
/// tell is left as it is.
void ApplyStillSettings(const Editing& e, const StillControls& controls);

/// The duration slider was moved: a change of the user's that becomes the default.
void moveStillSlider(const Editing& e, StillControls& controls, double milliseconds);

int GetStillsInCollection(const Editing& e);

/// The lines of Lst_Movies: a name, 200 blanks and the clip number, so that the number is out of sight.
std::vector<std::string> PopulateStillListBox(const Editing& e);

}  // namespace kvo
