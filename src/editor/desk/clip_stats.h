// What the editor tells of the clip in hand, and what can be done with it, as pure functions of its record.
#pragma once

#include "editor/tabs/editing.h"
#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/preview.h"

namespace kvo {

/// The card of clip `clipNo`. While the movie plays on the first tab it says so.
ClipStats clipStats(const Editing& e, int clipNo, bool previewing);

/// The sliders of its speed and level as the record has them; 0 for no clip.
ClipSliders clipSliders(const Editing& e, int clipNo);

/// "Clip Speed - 0.50x", for hundredths of normal speed.
std::string rateHeading(int hundredths);
/// Why there is nothing to copy, or to split where the player stands, and why no key can be pressed;
/// composed, empty where there is no hindrance.
struct KeyFacts {
  std::string toolsOff{};
  std::string Split{};
  std::string Copy{};
  std::string CopyEnd{};
  std::string Equi{};
};

/// Which of the keys cannot be pressed for clip `clipNo`, and why.
ClipKeys clipKeys(const Editing& e, int clipNo, const KeyFacts& facts);

/// The lengths of the movie by its last compile.
EditorTotals editorTotals(const EditorState& editor);
/// The same behind the compile of a preview, which says where there is no sound.
EditorTotals previewTotals(const EditorState& editor);

}  // namespace kvo
