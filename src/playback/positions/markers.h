// The index of the file in hand: the places in it that have a name.
#pragma once

#include "playback/positions/positions_core.h"

#include <memory>

namespace kvo {

class Markers {
 public:
  explicit Markers(PositionsCore& core);

  /// Behind a load: fills the index of the clip in hand and opens its window; with fewer than two markers
  /// there is none.
  void CheckMarkers();
  void open();
  void close();
  /// A click on an entry, from 0: goes there. A box says so where that cannot be.
  void choose(int entry);

 private:
  void highlight();

  PositionsCore& core_;
  std::unique_ptr<Timer> timer_;
};

}  // namespace kvo
