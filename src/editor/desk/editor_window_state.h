// What the editor's window shows beside its tabs, as data: the desk writes it, the window draws it and
// decides nothing.
#pragma once

#include "editor/tabs/editor_parts_state.h"

#include <cstdint>

namespace kvo {

/// Frm_Analysing, over the window while the files of the clips are looked into.
struct AnalysingState {
  bool visible = false;
  int done = 0;  ///< of `total` files
  int total = 0;
  bool operator==(const AnalysingState&) const = default;
};

struct EditorWindowState {
  EditorFrame frame;
  AnalysingState analysing;
  ClipStats stats;
  ClipSliders sliders;
  EditorTotals totals;
  ClipKeys keys;
  std::uint64_t timed = 0;        ///< higher each time that the places of the clips are others
  bool nothingToPreview = false;  ///< no clip is there
};

}  // namespace kvo
