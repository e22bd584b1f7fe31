// The clip list of the main window: filled from the collection, with the clip in hand selected.
#pragma once

#include "core/records/collection.h"
#include "program/main_window_state.h"

#include <string>

namespace kvo {

/// The collection's name without its extension, and " Collection"; 50 characters at most.
std::string listCaption(const Collection& collection);

/// Fills the list anew. What was selected stays selected where it still is; else the first clip is.
void fillClipList(MainWindowState& window, Collection& collection);

/// Makes clip `number` the one in hand; 0 is the first. Numbers that are not there change nothing.
void PreviewMovie(MainWindowState& window, Collection& collection, int number);

/// What the list asks.
class ClipChoice {
 public:
  ClipChoice(MainWindowState& window, Collection& collection) : window_(window), collection_(collection) {}

  /// Makes the clip of this number, counted from 1, the one in hand.
  void select(int number);

 private:
  MainWindowState& window_;
  Collection& collection_;
};

/// Shows the list, or the empty pane with its text when there is no clip.
void showCollection(MainWindowState& window, const Collection& collection);

}  // namespace kvo
