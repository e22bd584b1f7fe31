// What the keys about the chosen render of the queue say, and which of them can be pressed.
#pragma once

#include "render/queue_state.h"

namespace kvo {

/// Texts are whole.
struct QueueKeys {
  const char* act = "Pause";  ///< of the key that leads on
  const char* actTip = "";
  bool canAct = false;
  bool canRemove = false;
  bool canGoUp = false;
  bool canGoDown = false;
  bool hasMovie = false;  ///< its folder can be opened, in place of having it made earlier or later
  std::string why;        ///< the queue has stopped, or the chosen one has failed; empty else
};

/// The one that is chosen; null for none.
[[nodiscard]] const QueuedRow* chosenRow(const QueueState& state);

[[nodiscard]] QueueKeys queueKeys(const QueueState& state);

}  // namespace kvo
