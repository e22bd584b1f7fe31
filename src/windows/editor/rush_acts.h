// What the frame of the editor's window shows, and what it asks when the user acts on it.
#pragma once

#include "core/telling/work_glance.h"
#include "editor/tabs/editor_parts_state.h"

#include <functional>

namespace kvo {

/// All outlive the window.
struct RushState {
  const EditorFrame& frame;
  const ClipStats& stats;
  const ClipSliders& sliders;
  const EditorTotals& totals;
  const ClipKeys& keys;
  const EditorHistory& history;
  const WorkGlance& queue;  ///< of the renders in the background
};

/// None may be empty.
struct RushActs {
  std::function<void(int tab)> Buildtabs;  ///< 1 to 7
  std::function<void(ClipKey key)> clipKey;
  std::function<void()> transition;  ///< D: one leads into the clip in hand, if none does, and its tab opens
  std::function<void(int hundredths)> moveRate;
  std::function<void()> rateLetGo;
  std::function<void(int tenths)> moveLevel;
  std::function<void(int frames)> jog;         ///< the wheel has gone on by so many frames, or back
  std::function<void(int steps)> goInHistory;  ///< below 0 undoes, above 0 redoes
  std::function<void(double part)> zoom;       ///< of the timeline, 0 to 1
  std::function<void()> wholeMovie;
  std::function<void(int pixels)> keepTimelineHeight;  ///< at size 1, as the user leaves it
  std::function<void()> preview;                       ///< Space: the movie plays, halts, goes on
  std::function<void()> renderToFile;                  ///< Ctrl+Enter: Create Movie
  std::function<std::string()> save;    ///< Ctrl+S: into the collection's own file; gives what is said of it
  std::function<std::string()> saveAs;  ///< Ctrl+Shift+S: asks for a name; likewise
  std::function<void()> stop;           ///< Escape while the tools are off: ends what has them off
  std::function<void()> close;
  std::function<void()> showQueue;  ///< its window opens
};

}  // namespace kvo
