// The handles on the slider's line under the user's hand, and the marks of the clip in hand. A mark is the
// picture that was seen when it was set.
#pragma once

#include "playback/positions/positions_core.h"

namespace kvo {

enum class SliderHandleId { ImageBlob, Img_MarkIn, Img_MarkOut };

enum class MouseKey { Left, Right };

class Marks {
 public:
  explicit Marks(PositionsCore& core);

  // A drag, from press to release. Places are parts of the line, 0 to 1.

  /// False, and a box, while keyframes are set: marks stay then. False too without a clip of a length.
  bool press(SliderHandleId handle);
  void drag(SliderHandleId handle, double part);
  /// With the left key the place is kept; with the right one the mark goes to its end of the clip.
  void release(SliderHandleId handle, MouseKey key);
  /// All of it at once: a key of the keyboard, or a click on the line.
  void put(SliderHandleId handle, double part);
  /// The right key on a mark.
  void reset(SliderHandleId handle);
  /// A play ends a drag.
  void endDrag();

  // At the player's place.

  /// Nothing for a clip without a length. A mark that would cross the other is told in a box, and both go
  /// back to the clip's ends.
  void SetMarkIn();
  void SetMarkOut();
  /// Both back to the clip's ends.
  void ResetMarks();

  /// Puts the handles where the record's marks are.
  void showMarks();
  /// The marks of the clip in hand have been changed elsewhere, as by undo: tells the player.
  void takeMarks();

 private:
  void applyDrag();
  void follow();
  void releasePosition();
  void keepMarkIn();
  void keepMarkOut();
  void resetMark(bool in);
  void resume();
  void afterMark();
  void selectionEnd(double seconds);
  bool refusedByKeyframes(bool in);
  bool refusedByDisc();
  void tell(std::string_view text, std::string_view title);
  bool edit(bool in, const std::function<void(Movie&)>& change);
  void resetBoth();
  [[nodiscard]] double oneFrame() const;
  [[nodiscard]] SeenFrame seenNear(double wanted) const;

  PositionsCore& core_;
  bool moved_ = false;    // since the last tick of a drag
  bool resumes_ = false;  // it played when a mark was taken
};

}  // namespace kvo
