// The timeline's state, and what pointer, wheel and keys do on it. A window draws the state and brings the
// input; all else is decided here.
#pragma once

#include "editor/timeline/timeline_acts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

/// Something said where the hand is.
struct TimelineSaying {
  TimelinePoint at;
  std::string text;
  std::string reason;
};

/// Where dropped files would go.
struct TimelineDrop {
  int before = 1;
  double line = 0;  ///< seconds of the movie
};

struct TimelineState {
  TimelineBlocks blocks;
  std::uint64_t revision = 0;  ///< another for other blocks
  TimelineSight sight;
  TimelineMarks marks;
  std::optional<ClipEdge> edge;   ///< of the clip in hand, which the arrows move
  bool onlyShows = false;         ///< while a preview or render runs
  bool settingKeyframes = false;  ///< marks stay

  std::optional<TimelineDrag> drag;  ///< what is under way, and what it would do
  TimelineReading reading;
  std::optional<TimelineSaying> saying;
  int refusals = 0;  ///< higher for each saying that is a reason alone: nothing goes on that it belongs to
  std::optional<TimelineDrop> drop;
  TimelineHit hover;
};

enum class TimelineKey {
  Before,
  After,
  First,
  Last,
  EdgeIn,
  EdgeOut,
  Open,
  Remove,
  Copy,
  Split,
  ZoomIn,
  ZoomOut,
  PageBack,
  PageOn,
  Whole,
  Escape,
};

class TimelineHand {
 public:
  /// Both outlive it.
  TimelineHand(TimelineState& state, TimelineActs& acts) : state_(state), acts_(acts) {}

  // What the desk tells.

  void show(TimelineBlocks blocks);
  /// Another collection is open: all of the movie is in sight, whatever comes and goes and however wide the
  /// timeline is, until the user zooms, scrolls or takes hold of something.
  void open() { whole(); }
  /// Another clip is in hand; it comes in sight.
  void takeInHand(int clip);
  /// The movie stands at `seconds`; with `inSight` the timeline follows.
  void stand(double seconds, bool inSight);

  // Sight. Scales are pixels a second.

  void resize(double width, double height);
  void zoom(double scale, double x);
  /// About the playhead where it is in sight, else about the middle.
  void zoomBy(double factor);
  void whole();
  void scroll(double from);
  /// By so many times of what is in sight.
  void page(double pages);
  /// The scale as the part of its way that a slider shows, 0 to 1: each stretch of it zooms by as much.
  [[nodiscard]] double zoomPart() const;
  void setZoomPart(double part);

  // Pointer. Places are those of TimelineSight.

  void press(const TimelinePoint& at, const TimelineHeld& held);
  void move(const TimelinePoint& at, const TimelineHeld& held);
  void release();
  void leave();
  void doubleClick(const TimelinePoint& at);
  /// Gives up what is under way.
  void cancel();
  /// At an edge of the lanes a drag goes on: to be called every 30 ms. False where it does not.
  bool scrollOn();
  /// Notches of a wheel, from the user up and to the left.
  void wheel(const TimelinePoint& at, double across, double along, const TimelineHeld& held);
  void pinch(const TimelinePoint& at, double factor);
  /// Opens the menu of what is there, with its corner at a place of the screen.
  void openMenu(const TimelinePoint& at, int x, int y);
  /// The same of the clip in hand.
  void openMenuInHand(int x, int y);

  // Files that are dragged over it.

  void dragFiles(const TimelinePoint& at);
  void leaveFiles() { state_.drop.reset(); }
  void dropFiles(const std::vector<std::string>& files);

  /// False for a key that does nothing here.
  bool key(TimelineKey key, const TimelineHeld& held);

 private:
  [[nodiscard]] double end() const { return state_.blocks.end(); }
  [[nodiscard]] const TimelineBlock* inHand() const { return state_.blocks.of(state_.marks.clip); }
  void keepWhole();
  void select(int clip);
  void read();
  void carryOut(const TimelineGesture& gesture);
  void click(const TimelineHit& hit);
  void say(const TimelineBlock& block, TimelineReading reading);
  void refuse(const TimelineBlock& block, double seconds, std::string reason);
  void sayAt(const TimelinePoint& at, std::string reason);
  void sayOnlyShows(const TimelinePoint& at);
  void chooseEdge(ClipEdge edge);
  void letGoOfEdge();
  void go(int direction, const TimelineHeld& held);
  void goTo(bool last);
  void step(int direction);
  void moveClip(int direction);
  void edit(TimelineKey key);
  void split();

  TimelineState& state_;
  TimelineActs& acts_;
  bool isWhole_ = false;                 // all is in sight, and stays so
  std::optional<TimelineDrag> pressed_;  // a drag, once it has gone far enough
};

}  // namespace kvo
