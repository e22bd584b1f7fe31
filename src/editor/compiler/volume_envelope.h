// The volume envelope of one clip in the audio group. Its times count from the clip's start on the timeline.
#pragma once

#include "editor/compiler/timeline_clips.h"

#include <optional>
#include <string>

namespace kvo {

struct LevelingOptions {
  double Start = 0;                     ///< seconds on the timeline, as the clip's tag gives them
  double Stop = 0;                      ///< seconds
  double FadeIn = 0;                    ///< seconds
  double FadeOut = 0;                   ///< seconds
  std::optional<double> AutoFadeIn{};   ///< seconds
  std::optional<double> AutoFadeOut{};  ///< seconds from the clip's start
  bool Silent = false;
  bool WithFades = false;
  bool WithMusic = false;  ///< KVO2.DubInPlaylistAudioTrks
};

/// The envelope and `</clip>`. `counter` is the number of clips that had one in this pass, and grows. Only
/// the first of a pass that is silent gets an envelope.
std::string AddLevelingInfo(const TimelineClip& clip, int& counter, const LevelingOptions& options);

/// An envelope of one level over `length` seconds, without `</clip>`.
std::string constantEnvelope(double length, Single level);

}  // namespace kvo
