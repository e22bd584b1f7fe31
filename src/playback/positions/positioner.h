// The direct positioner, Frm_Position: goes to a typed or stepped place, and sets marks there.
#pragma once

#include "playback/positions/marks.h"
#include "playback/positions/stepping.h"

#include <memory>
#include <string_view>

namespace kvo {

class Positioner {
 public:
  Positioner(PositionsCore& core, Marks& marks, Stepping& stepping);

  /// Opens it for one of its three tasks; nothing for a clip without a length.
  void Pic_DigNumbers_Click(Whatto what = Whatto::PositionDirectly);
  void close();

  void choose(Whatto what);
  void choose(Increment increment);

  /// What has been typed so far: figures and one full stop; other characters are left out. Of the unit that
  /// is shown.
  void type(std::string_view text);
  /// Goes to what has been typed. False, and why, when the clip has no such place.
  bool goToTyped();
  /// Goes by so many of the chosen increments.
  void nudge(int increments);

  void Advance1frame() { stepping_.Adv1(true); }
  void Rewind1Frame() { stepping_.Rew1(true); }
  void gotoMarkIn();
  void gotoMarkOut();
  /// Both marks back to the clip's ends.
  void reset();
  /// "Apply your changes": a typed place first, then the mark that it is for.
  void apply();

  /// The display is brought up to date.
  void show();

 private:
  [[nodiscard]] bool inFrames() const;

  PositionsCore& core_;
  Marks& marks_;
  Stepping& stepping_;
  std::unique_ptr<Timer> timer_;
};

}  // namespace kvo
