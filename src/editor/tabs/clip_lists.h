// The lists of clips on the tabs of the editor: views of the main list, each row a clip's name and, out of
// sight, its number.
#pragma once

#include "base/revised_list.h"
#include "editor/tabs/editing.h"

#include <string>
#include <vector>

namespace kvo {

/// A list box: its rows, and which of them is chosen.
struct ListBox {
  RevisedList<std::string> texts;  ///< a row each
  int ListIndex = -1;              ///< from 0; -1 for none

  [[nodiscard]] const std::vector<std::string>& rows() const { return texts.rows(); }
  [[nodiscard]] bool hasChoice() const {
    return ListIndex >= 0 && ListIndex < static_cast<int>(rows().size());
  }
};

/// Which clips a list has.
enum class ListedClips {
  WithPicture,  ///< Lst_Clips, Lst_TransitionMovies, Lst_ColorAdjust and the two of Overlay
  AndMusic,     ///< Lst_AudioMovies: those that are laid under a movie as well
};

/// The rows of a list: the clip's name, 150 blanks, its number. What can be in no movie is in none.
std::vector<std::string> PopulateMovieListBoxes(const Editing& e, ListedClips which);

/// The name in a row, for showing it.
std::string nameOfRow(const std::string& row);

/// Chooses the row of a clip; none where the list does not have it.
void chooseClip(ListBox& list, int clipNo);

/// The same with the clip that is current in the main window.
void SetMovieLstToMainIndex(const Editing& e, ListBox& list);

/// The clip of the chosen row; 0 when none is chosen.
int chosenClip(const ListBox& list);

}  // namespace kvo
