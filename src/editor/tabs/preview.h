// The compile behind the Preview button, and what the editor shows of its lengths.
#pragma once

#include "base/result.h"
#include "editor/tabs/editing.h"
#include "editor/tabs/still_options.h"

#include <string>

namespace kvo {

/// The labels beside the preview.
struct PreviewLabels {
  std::string lbl_VideoTotTime;  ///< "012.500"
  int FSB_RenderRangeMax = 0;    ///< whole seconds
  std::string Lbl_AudTotal;
  std::string audioToolTip;
  bool audioIsRed = false;  ///< sound and picture are of different length
};

/// What the lengths of the last compile come to.
PreviewLabels labelsOf(const EditorState& editor);

/// Caption of the power slider's frame and its tool tip, for a power of 1 to 10.
std::string powerCaption(int power);
std::string powerToolTip(int power);

/// Compiles the collection at the power of the settings into "\KVORender.xtl" beside the program;
/// ClipStopList is filled by it. Fails, with a box, when there is nothing to show.
Result<PreviewLabels> CreatePreview(const Editing& e, const StillControls& stills);

}  // namespace kvo
