// The video tracks of a timeline document, and with them the place of every clip on the timeline.
#pragma once

#include "editor/compiler/compilation.h"

namespace kvo {

struct ClipLineOptions {
  bool Analysing = false;  ///< effects and transitions as the preview's power says; a render has them all
  bool TransitionPreview = false;  ///< only FirstClip to LastClip, and the records are left alone
  int FirstClip = 1;
  int LastClip = 1;
  bool TransitionZero = false;  ///< transitions start at 0 and last as the slider says
  bool FixedDuration = false;   ///< a cut is shown with FixedSeconds of each side
  Single FixedSeconds = 0;
  bool UseSourceFile = false;  ///< SrcPath + SrcName where set, in place of Path + MovieName
};

/// Fills VideoTrackText with a track for each clip that has a picture and writes TimeLineStart and
/// TimeLineStop into the records. Leaves VideoTotalTime and LastClipStop. A record's or the settings' dirty
/// flag, and the change code, are the same afterwards.
void CreateClipLine(const Compilation& c, ClipLineOptions options);

}  // namespace kvo
