// What the step keys of both faces do.
#pragma once

#include "playback/positions/position_state.h"

#include <functional>

class QAbstractButton;

namespace kvo {

struct StepActs {
  std::function<void(Step)> press{};
  std::function<void(Step)> release{};  ///< an empty one disables the keys
  std::function<void(Step)> right{};    ///< the right key of the mouse: an end of the section

  /// Has a key do them, by mouse and keyboard.
  void serve(QAbstractButton& key, Step which) const;
};

class Stepping;

/// Those of `stepping`, with `acted` behind each.
StepActs stepActs(Stepping& stepping, const std::function<void()>& acted);

}  // namespace kvo
