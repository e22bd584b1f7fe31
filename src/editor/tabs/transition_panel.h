// The editor's controls for transitions as data, and what choosing one does to the clip in hand.
#pragma once

#include "editor/compiler/transition_names.h"
#include "editor/tabs/editing.h"

#include <string>

namespace kvo {

struct TransitionPanel {
  std::string selected{};            ///< in Lst_Transitions; empty for none
  bool listVisible = true;           ///< else the clip has a plain cut
  TransitionOptionSet options{};     ///< what the option boxes ask for
  bool Cmd_ParticleOpts = false;     ///< the button of the particle options is shown
  bool wantsParticleWindow = false;  ///< the particle options are to be opened
  bool wantsPreview = false;         ///< a sample is to be played
  std::string Fra_FadDur = "Transition Duration";
  bool durationIsShort = false;  ///< the frame's caption is red
  std::string currentMask{};     ///< "Current Mask=" and the file
};

/// A name was picked; a `mode` of 2 asks for the particle options where there are such.
void DoTransition(const Editing& e, TransitionPanel& panel, int mode);

/// Stores the selected transition and its duration in the clip in hand.
void ApplyTransitionDataToObjects(const Editing& e, TransitionPanel& panel);

/// The caption of the duration's frame for the value of the slider.
void showDuration(const Editing& e, TransitionPanel& panel);

/// A box about a duration that is too short to be seen. Behind what stores one, never while a slider is
/// dragged.
void warnOfShortDuration(const Editing& e, const TransitionPanel& panel);

/// Selects the transition that the clip in hand has.
void MatchTransitionToList(const Editing& e, TransitionPanel& panel);

}  // namespace kvo
