// How fast the clip in hand plays.
#pragma once

#include "playback/positions/osd.h"
#include "playback/positions/positions_core.h"

#include <string_view>

namespace kvo {

class Rate {
 public:
  explicit Rate(PositionsCore& core) : core_(core), window_(core.loop, core.mode, core.state.rate) {}

  /// "0.25", "0.50", "1.0", "2.0". Kept with the clip when the engine takes it. What cannot change its speed
  /// stays as it is: some kinds say so in a box, the others in silence.
  void SetRate(std::string_view rateText);
  /// From the clip's own rate to 1.0 and back; the record stays.
  void Lbl_Speedo_Click();
  /// The clip in hand has this rate from now on, 1 is normal.
  void keep(double rate);
  /// Gives the player the clip's own rate.
  void takeRecord();
  /// Shows a rate on Frm_Rate; 20.0 shows it as it was.
  void reloadWindow(double rate);
  void closeWindow() { window_.close(); }

 private:
  bool refused();
  void offerWave();
  void showRate(double rate);
  void changeBy(double rate);

  PositionsCore& core_;
  Osd window_;
};

}  // namespace kvo
