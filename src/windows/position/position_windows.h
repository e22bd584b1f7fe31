// The windows of places in the clip, together: positioner, index, rate and level.
#pragma once

#include "playback/positions/positions.h"
#include "windows/position/fading_window.h"
#include "windows/position/frm_markers.h"
#include "windows/position/frm_position.h"

#include <functional>

namespace kvo {

class PositionWindows {
 public:
  /// Where the windows stand is kept in `store`, by the screens of `desktop`.
  struct Places {
    UserStore& store;
    const Desktop& desktop;
  };

  /// All outlive the windows. `acted` is called behind each act of the user's.
  PositionWindows(const PositionsState& state, const DisplayModeState& mode, Positions& positions,
                  const Places& places, const std::function<void()>& acted);

  /// Brings them in line with the state, above `owner`, the face that is shown; null closes all.
  void draw(QWidget* owner);

 private:
  const DisplayModeState& mode_;
  FrmPosition position_;
  FrmMarkers markers_;
  FadingWindow rate_;
  FadingWindow level_;
};

}  // namespace kvo
