// The tab Stills: how long stills are shown, and how they fit the frame; all alike or one by one.
#pragma once

#include "editor/tabs/clip_lists.h"
#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/still_options.h"
#include "editor/tabs/tab_host.h"

#include <span>
#include <string>
#include <string_view>

namespace kvo {

struct StillsTab {
  std::string caption;  ///< composed: "Still Options - 2 stills in this collection"
  ListBox Lst_Movies;
  StillControls controls;
  ClipSlider Slider1;      ///< milliseconds
  std::string reading;     ///< of the slider, composed: "7.0 s"
  bool enabled = false;    ///< there are stills
  std::string whyNot;      ///< there are none; whole, empty where there are
  std::string listWhyNot;  ///< Lst_Movies is off: nor are they set one by one; likewise
  int shownClip = 0;       ///< whose picture the options show; 0 for none
};

/// The captions of Opt_Aspect, by its index.
std::span<const std::string_view> aspectCaptions();

/// The editor opens, or another collection does in it: the options are those of its stills, tab or no tab.
void restoreStills(const Editing& e, StillsTab& tab);

/// The tab is opened. Stills without a length get the default one, which is no change of the user's.
void enterTab(const Editing& e, StillsTab& tab, TabHost& host);
/// A change was heard of while it is open.
void followTab(const Editing& e, StillsTab& tab, TabHost& host, bool rebuild);

/// What a preview applies: the options as the stills have them now, tab or no tab.
StillControls stillControls(const Editing& e, StillsTab& tab);

/// A row of Lst_Movies, from 0.
void chooseStill(const Editing& e, StillsTab& tab, TabHost& host, int row);

/// Opt_GroupOrIndividual. Stills that are to be the same take the options that are shown.
void chooseIndividually(const Editing& e, StillsTab& tab, TabHost& host, bool individually);

/// Slider1, in milliseconds; the value becomes the default too.
void moveStillDuration(const Editing& e, StillsTab& tab, TabHost& host, int milliseconds);

/// Opt_Aspect.
void chooseAspect(const Editing& e, StillsTab& tab, TabHost& host, int aspect);

}  // namespace kvo
