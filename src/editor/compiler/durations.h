// The arithmetic of time on the timeline: how long a clip is there, how long a transition into it may be, and
// what follows from both. All times are seconds; TransIn and the sliders are in tenths of a second.
#pragma once

#include "editor/compiler/compilation.h"

#include <string>
#include <string_view>

namespace kvo {

/// Playspeed / 10: 1 is normal speed.
double speedOf(const Movie& clip);

/// A number of tenths of a second, as seconds, free of single-precision noise.
double secondsFromTenths(Single tenths);

/// (LoopEnd - LoopStart) / (Playspeed / 10).
double timelineLength(const Movie& clip);

/// Rounded to four decimals and written short: 4, 4.125.
std::string startText(double seconds);

/// Four decimals, always: 5.0000.
std::string fixedText(double seconds);

/// A record's seconds as a document gives them: as they stand where they are a number, else the number that
/// they read as.
std::string secondsText(const Value& seconds);

/// The longest allowed transition into the clip in seconds, one decimal: the shorter of the clip and the one
/// before it, at most 25.
std::string CalcMaxTransitionDuration(const Compilation& c, int clipNo);

/// Sets the limit of Sld_In for the clip and brings TransIn within it.
void SortTransitionTimes(const Compilation& c, int clipNo);

/// The section length in seconds for previewing a plain cut between two clips.
Single CalcMinimumDur(const Compilation& c, int clipA, int clipB);

/// The shortest source range among the sound clips, or among the others, in whole seconds; 0 when there is
/// none.
Long FindShortestCut(const Compilation& c, bool audioOnly);

/// True walks the clips and sets HasAudioFade of those with a video stream; false holds VideoTrackFadeAmt
/// within the shortest clip.
void UpdateTrackFade(const Compilation& c, bool audioPass);

struct Autofade {
  bool fits = false;
  std::string FadeTime;      ///< seconds; empty when left alone
  std::string FadeOutStart;  ///< seconds from the clip's start; empty when left alone
};

/// Whether an automatic fade of `amount` seconds (0 counts as 2) fits. `startText` and `stopText` have the
/// forms start="4" and stop="8.0000".
Autofade CalcAutofade(std::string_view startText, std::string_view stopText, Single amount);

/// The number in a text of the form start="4".
double attributeNumber(std::string_view text);

/// Brings KVO2.AutoTrimAudio into line with Chk_AutoTrim.
void SetAutoTrim(const Compilation& c);

}  // namespace kvo
