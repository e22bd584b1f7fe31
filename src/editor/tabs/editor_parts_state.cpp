#include "editor/tabs/editor_parts_state.h"

#include "core/telling/translated.h"

namespace kvo {

std::string whyNoStep(const EditorFrame& frame, const EditorHistory& history, int steps) {
  if (!frame.toolsOn) return frame.toolsOffBecause;
  const bool canUndo = steps <= 0 && !history.done.empty();
  const bool canRedo = steps >= 0 && !history.undone.empty();
  if (canUndo || canRedo) return {};
  return translated(steps > 0 ? "There is nothing to redo" : "There is nothing to undo");
}

}  // namespace kvo
