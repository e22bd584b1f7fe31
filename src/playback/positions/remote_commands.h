// What the remote control's labels do, whoever presses them: its panel, keys, a click on the picture.
#pragma once

#include "playback/positions/levels.h"
#include "playback/positions/rate.h"
#include "playback/positions/stepping.h"

namespace kvo {

class RemoteCommands {
 public:
  RemoteCommands(PositionsCore& core, Stepping& stepping, Rate& rate, Levels& levels)
      : core_(core), stepping_(stepping), rate_(rate), levels_(levels) {}

  // Each does nothing while there are no clips.

  void Lbl_Play_Click();
  void Lbl_Pause_Click();
  /// The clip behind. From the last one a still goes on to the first, and so do others while collections
  /// loop. One clip alone stays.
  void Lbl_NextMov_Click();
  void Lbl_PrevMov_Click();
  void Lbl_Start_Click() { when(&RemoteCommands::toStart); }
  void Lbl_End_Click() { when(&RemoteCommands::toEnd); }
  /// A step, behind which the player stands and shows it.
  void step(Step which);
  /// "2.0", "0.50" or "0.25"; not for tracks and addresses.
  void rate(std::string_view rateText);
  void Lbl_Mute_Click();

 private:
  [[nodiscard]] bool Aremoviesloaded() const { return clipInHand(core_.collection) != nullptr; }
  void when(void (RemoteCommands::*act)()) {
    if (Aremoviesloaded()) (this->*act)();
  }
  void toStart() { stepping_.Lbl_Start_Click(); }
  void toEnd() { stepping_.Lbl_End_Click(); }
  void toClip(int direction);

  PositionsCore& core_;
  Stepping& stepping_;
  Rate& rate_;
  Levels& levels_;
};

}  // namespace kvo
