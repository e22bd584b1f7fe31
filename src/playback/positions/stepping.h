// The step keys: a frame or several, on and back, once or for as long as the key is held; and the ends of
// the section.
#pragma once

#include "playback/positions/positions_core.h"

namespace kvo {

class Stepping {
 public:
  explicit Stepping(PositionsCore& core);

  // A frame, and five. `quiet`: by the remote control or by repeating, which draws no key; Adv5 then goes a
  // fiftieth of the section. Nothing without a clip, for a stream, and in what cannot be sought in. The
  // player stands behind it, counting in frames.

  void Adv1(bool quiet);
  void Rew1(bool quiet);
  void Adv5(bool quiet);
  void Rew5(bool quiet);
  void step(Step which, bool quiet);
  /// By so many pictures at once, back below 0, from the place that the player is on its way to; sound goes
  /// by tenths of a second. No further than the section goes on.
  void goBy(int pictures);

  // A key of the window. With a still the two large ones show the next clip and the one before.

  void press(Step which);
  void release(Step which);
  /// Has the step repeated every so many milliseconds until letGo().
  void hold(Step which, int milliseconds);
  void letGo();

  /// Right key: the end and the start of the section; of a disc the next and the last chapter or track, where
  /// it has any.
  void Lbl_End_Click();
  void Lbl_Start_Click();

 private:
  void repeat();
  void one(int direction, bool quiet);
  void several(int direction, bool quiet);
  bool begins(Step which, bool quiet);
  void ends(Step which, bool quiet);
  [[nodiscard]] Long framesOf(int direction, bool quiet) const;
  [[nodiscard]] bool toChapter(int direction);
  void toSectionEnd(bool start);

  PositionsCore& core_;
  bool repeated_ = false;  // since the key went down
};

}  // namespace kvo
