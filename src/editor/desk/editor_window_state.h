// What the editor's window shows beside its tabs, as data: the desk writes it, the window draws it and
// decides nothing.
#pragma once

#include "editor/tabs/editor_parts_state.h"
#include "ports/timeline_player.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

namespace kvo {

/// Frm_Analysing, over the window while the files of the clips are looked into.
struct AnalysingState {
  bool visible = false;
  int done = 0;  ///< of `total` files
  int total = 0;
  std::string file;                       ///< that is looked into now; empty where it is not known
  std::string film;                       ///< that is played meanwhile; empty for the fixed picture
  int plays = 0;                          ///< commands to play it
  std::shared_ptr<const Bitmap> picture;  ///< of the film
  /// The number of the clip that is looked into.
  [[nodiscard]] int clip() const { return std::min(done + 1, total); }
  bool operator==(const AnalysingState&) const = default;
};

struct EditorWindowState {
  EditorFrame frame;
  AnalysingState analysing;
  ClipStats stats;
  ClipSliders sliders;
  EditorTotals totals;
  ClipKeys keys;
  std::uint64_t opened = 1;       ///< another for another collection
  std::uint64_t timed = 0;        ///< higher each time that the places of the clips are others
  bool nothingToPreview = false;  ///< no clip is there
};

}  // namespace kvo
