// Which parts of the normal face are seen.
#pragma once

#include "program/main_window_state.h"

namespace kvo {

struct FaceParts {
  bool empty = false;         ///< the pane that asks for media
  bool list = false;          ///< and what stands beside it
  bool picture = false;       ///< the small one, and the details of its clip
  bool largePicture = false;  ///< in the place of both
  bool collection = false;    ///< below the list: what it comes to, the position, Create Movie
  bool operator==(const FaceParts&) const = default;
};

/// `tellsOfWork`: the pane of long work stands in the place of all of them.
[[nodiscard]] FaceParts faceParts(const MainWindowState& state, bool tellsOfWork);

/// How a stream comes in stands on the picture: it runs low on a face that has no labels for it.
[[nodiscard]] bool saysStreamOnPicture(const MainWindowState& state);

}  // namespace kvo
