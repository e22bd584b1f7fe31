// The arithmetic of time on the timeline: how long a clip is there, how long a transition into it may be, and
// what follows from both. All times are seconds; TransIn and the sliders are in tenths of a second.
#pragma once

#include "editor/compiler/timeline_clips.h"

#include <optional>

namespace kvo {

/// Playspeed / 10: 1 is normal speed.
double speedOf(const Movie& clip);
inline double speedOf(const TimelineClip& clip) { return speedOf(*clip.record); }

/// A number of single precision as the decimal number that it stands for.
double decimal(Single value);

/// A number of tenths of a second, as seconds, free of single-precision noise.
double secondsFromTenths(Single tenths);

/// (LoopEnd - LoopStart) / (Playspeed / 10).
double timelineLength(const Movie& clip);
double timelineLength(const TimelineClip& clip);

/// Gives a still without marks `duration` seconds, from 0 on. Marks that it has stand; another clip is left
/// alone.
void giveStillLength(TimelineClip& clip, Single duration);

/// The longest allowed transition into the clip, to a tenth of a second: the shorter of the clip and the one
/// before it, at most 25. A still without a length counts `stillDuration`.
double longestTransition(const TimelineClips& clips, int clipNo, Single stillDuration);

/// What is said of a clip that none can lead into, for want of length.
inline constexpr const char* kTooShortForTransition =
    "This clip or the previous clip is too short to apply a transition to";

/// Brings TransIn within its limit, which it gives back in tenths of a second, and the clip's end in order: a
/// still whose marks are one lasts `stillDuration`.
int holdTransition(TimelineClips& clips, int clipNo, Single stillDuration);

/// The section length in seconds for previewing a plain cut between two clips.
Single CalcMinimumDur(const TimelineClip& a, const TimelineClip& b);

/// The shortest source range among the sound clips, or among the others, in whole seconds; 0 when there is
/// none.
Long FindShortestCut(const TimelineClips& clips, bool audioOnly);

/// HasAudioFade of the clips whose file has a picture: whether they are heard, and fade.
void setAudioFades(TimelineClips& clips);

struct Autofade {
  bool fits = false;
  std::optional<double> FadeTime;      ///< seconds; none when left alone
  std::optional<double> FadeOutStart;  ///< seconds from the clip's start; none when left alone
};

/// Whether an automatic fade of `amount` seconds (0 counts as 2) fits between two times of the timeline.
Autofade CalcAutofade(double start, double stop, Single amount);

}  // namespace kvo
