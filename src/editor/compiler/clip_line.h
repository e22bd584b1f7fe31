// The video tracks of a timeline document, and with them the place of every clip on the timeline.
#pragma once

#include "editor/compiler/effect_elements.h"
#include "editor/compiler/timeline_clips.h"

#include <optional>
#include <string>

namespace kvo {

/// What of its text a video line has; its clips are placed in any case.
enum class LineText {
  Whole,
  Clips,  ///< neither effects nor transitions, of which a timing pass corrects nothing
  None,   ///< the same, where the places alone are wanted
};

struct ClipLineOptions {
  bool TransitionPreview = false;  ///< only FirstClip to LastClip, and no clip is placed
  int FirstClip = 1;
  int LastClip = 1;
  bool TransitionZero = false;  ///< transitions start at 0 and last TransitionSeconds
  bool FixedDuration = false;   ///< a cut is shown with FixedSeconds of each side
  Single FixedSeconds = 0;
  bool UseSourceFile = false;  ///< SrcPath + SrcName where set, in place of Path + MovieName
  double TransitionSeconds = 0;
  LineText Text = LineText::Whole;
};

struct VideoLine {
  std::string tracks;
  std::optional<double> stop;  ///< seconds where the last clip stops; none without a clip
  double largestStop = 0;      ///< seconds: the largest of the last clip handled and the line's stop
};

/// A track for each clip that has a picture; places the clips and brings what they are held to in order.
VideoLine videoLine(const EffectSources& sources, TimelineClips& clips, const ClipLineOptions& options);

/// The stretchmode attribute of a still, spelled as readers of a document know it.
std::string_view stretchModeText(Integer mode);

/// SrcPath + SrcName where that is set, else Path + MovieName.
std::string sourceFile(const Movie& clip);

}  // namespace kvo
