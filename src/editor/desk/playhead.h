// Where the user is in the movie: one place, at which the playhead, the picture, the clip in hand and the
// player of the main window are. Whichever of them the user moves, the others follow.
#pragma once

#include "editor/desk/desk_doors.h"
#include "editor/tabs/editing.h"
#include "ports/event_loop.h"
#include "program/clip_list.h"
#include "program/main_window_state.h"

#include <memory>
#include <optional>

namespace kvo {

class Playhead {
 public:
  struct Parts {
    const Editing& editing;
    const MainWindowState& window;
    EventLoop& loop;
    ClipList& list;
    DeskPreview& preview;
    const MainWindowDoors& doors;
  };
  /// All of it outlives the object.
  explicit Playhead(const Parts& parts);

  /// The movie stands at `seconds`, by the user's choice: the clip there comes in hand, the one that is
  /// already where it lies there. The player follows when the hand rests. True for another clip.
  bool goTo(double seconds);

  /// On by so many pictures of the clip in hand, or back; sound goes by tenths of a second, a still by
  /// pictures of the movie. The player tells where that leads. Nothing while the movie plays.
  void step(int pictures);

  /// Ahead of each drawing: another clip may have been taken in hand, or the movie been timed anew. A clip
  /// that does not lie at the playhead takes it to its start.
  void follow();

  /// The clip in hand comes into the player, which stands at the place, at once.
  void bring();
  /// The same in a moment.
  void bringSoon() { rest_->start(kRest); }

  /// Nothing is in hand: the editor has closed, or another collection is open.
  void reset();

  /// Takes a clip in hand that the movie comes to as it plays, or is about to: the place is the movie's,
  /// until goTo says where that has ended, or another clip is chosen.
  void lend(int clipNo);
  /// The clip in hand plays in the main window: it is let to, until the playhead goes elsewhere.
  void letPlay() { played_ = inHand(); }
  /// The clip in hand has been loaded, and stands where that leaves it.
  void loaded();

  [[nodiscard]] double inMovie() const { return inMovie_; }  ///< seconds
  [[nodiscard]] double inClip() const { return inClip_; }    ///< seconds of its file
  /// The same with the number of its picture; none for what the player cannot show.
  [[nodiscard]] std::optional<PlayerPlace> inPlayer() const;

 private:
  static constexpr int kRest = 150;  // milliseconds

  [[nodiscard]] const Movie* inHand() const;
  void place(const Movie& clip, double inClip);
  void take(const Movie* clip);
  void land();
  [[nodiscard]] bool awaitsTiming() const;
  [[nodiscard]] bool movedPlayer() const;

  Parts parts_;
  std::unique_ptr<Timer> rest_;
  const Movie* clip_ = nullptr;    // that the place is in; only compared
  const Movie* loaded_ = nullptr;  // that came into the player last; likewise
  const Movie* played_ = nullptr;  // that the main window plays; likewise
  double inMovie_ = 0;
  double inClip_ = 0;
  double timed_ = 0;        // what the last timing made of inClip_
  bool isLent_ = false;     // to the movie
  bool isUntimed_ = false;  // the clip in hand came with a change that the movie has not been timed for
};

}  // namespace kvo
