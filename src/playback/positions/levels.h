// How loud the clip in hand is: what the player is told of volume, balance and output level, and the sound
// switched off.
#pragma once

#include "playback/positions/osd.h"
#include "playback/positions/positions_core.h"

namespace kvo {

class Levels {
 public:
  explicit Levels(PositionsCore& core) : core_(core), window_(core.loop, core.mode, core.state.level) {}

  /// Volume, balance and output level of the record, and whether the sound is off, to the player.
  void takeRecord();
  /// The output level alone. Kinds whose engine has none keep their sound as it is.
  void SetAudioOutputLevel();
  /// Sets the clip's output level, in tenths, 0 to 10, and shows it.
  void UpdateRateDisp(int tenths);
  /// Shows the output level on Frm_AudioLev.
  void showLevel();
  /// The sound off, and on again.
  void toggleMute();
  void closeWindow() { window_.close(); }

 private:
  [[nodiscard]] bool hasOutputLevel() const;

  PositionsCore& core_;
  Osd window_;
};

}  // namespace kvo
