// The editor's controls for a clip's effects as data, and what switching one of them does to the record.
#pragma once

#include "editor/compiler/effect_word.h"
#include "editor/tabs/editing.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct EffectControls {
  EffectWord switches;  ///< Chk_Effect 1 to 42, Chk_Blur, Chk_MotionBlur, Chk_FilmAge, Chk_Ease
  int Sld_Blur = 0;
  int Sld_MotionBlurStrength = 0;
  int Sld_MotionDir = 0;
  int Sld_FilmAge = 1;
};

/// The caption of Chk_Effect 1 to 42: a built-in effect, or the name in the palette slot.
std::string effectCaption(const Editing& e, int position);

/// The effect number of a switch, by which its keyframes are kept; 0 for one that can have none.
int effectNumber(const Editing& e, int position);

/// Stores the switches in the clip's EffectWord. The keyframes of an effect that is off are gone for good.
void CreateStaticClipEffectWord(const Editing& e, const EffectControls& controls, int clipNo);

/// The controls as the clip's record has them.
EffectControls DecodeStaticClipEffectWord(const Editing& e, int clipNo);

/// With no effect on: empties the clip's word and removes all its keyframes.
void ValidateEffectWordfromInterface(const Editing& e, const EffectControls& controls, int clipNo);

/// Switches an effect of the clip in hand on or off, with all that follows from it: sliders at a level that
/// can be seen, the base keyframe, the word.
void switchEffect(const Editing& e, EffectControls& controls, int position, bool on);

/// A right click on a switch that is on: true opens the keyframes of its effect; one without options says so.
bool configureEffect(const Editing& e, int position);

/// The presets of the ease panel.
void applyEaseDefaultIn(Movie& clip);
void applyEaseDefaultOut(Movie& clip);

/// The four labels of the ease sliders.
std::vector<std::string> SetEaseSliderHeadings(const Movie& clip);

/// Sepia, colours and threshold are not for systems with one of the older tags; switches them off there.
void ResetObjForNonEffectOs(Movie& clip, std::string_view systemTag);

}  // namespace kvo
