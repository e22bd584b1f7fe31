// The fade sliders of the audio options, in tenths of a second.
#pragma once

#include "editor/tabs/editing.h"

#include <string>

namespace kvo {

struct AudioFadeControls {
  bool renderAudio = false;  ///< Chk_RenderClipAudio of the clip in hand
  double fadeIn = 0;         ///< tenths of a second
  double fadeOut = 0;
};

/// Copies the sliders to the clip in hand, or, with `fromSliders` false, back. While Chk_AutoTrim is ticked a
/// fade that is longer than the clip is warned of.
void AdjustAudioTrackFadeObjects(const Editing& e, AudioFadeControls& controls, bool fromSliders);

/// The two halves of the former, for a slider that is still being dragged.
void storeAudioFades(Movie& clip, const AudioFadeControls& controls);
void warnOfLongFades(const Editing& e, const Movie& clip, const AudioFadeControls& controls);

struct AudioFadeTitles {
  std::string fadeIn;
  std::string fadeOut;
};

/// "Fade In Over 1.5s", or "- Cut" at 0.
AudioFadeTitles UpdateAudioFadeSliderTxt(const AudioFadeControls& controls);

}  // namespace kvo
