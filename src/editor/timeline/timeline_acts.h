// What a timeline asks of the desk that it lies on. Clips go by their numbers in the collection, from 1. Each
// drag is one step of the history; the functions of timeline_writes.h say what it is.
#pragma once

#include "editor/timeline/timeline_gestures.h"

#include <string>
#include <vector>

namespace kvo {

class TimelineActs {
 public:
  TimelineActs() = default;
  TimelineActs(const TimelineActs&) = delete;
  TimelineActs& operator=(const TimelineActs&) = delete;
  virtual ~TimelineActs() = default;

  /// Takes a clip in hand, everywhere.
  virtual void select(int clip) = 0;
  /// Puts a clip ahead of the one that has the number `before` now.
  virtual void moveTo(int clip, int before) = 0;
  virtual void setMark(const MarkGesture& mark) = 0;
  virtual void setTransIn(const TransInGesture& transition) = 0;
  virtual void setFade(const FadeGesture& fade) = 0;

  /// Goes to a place of the movie, in seconds.
  virtual void seek(double seconds) = 0;
  /// The stretch of the movie that preview and render are asked for.
  virtual void setRange(const TimelineRange& range) = 0;
  /// Shows what a clip's file has at `seconds`, while a mark is dragged there; then what was shown before.
  virtual void showFrame(int clip, double seconds) = 0;
  virtual void endFrame() = 0;

  /// Adds files and folders ahead of the clip with this number; music among them goes behind all pictures.
  virtual void insertFiles(const std::vector<std::string>& files, int before) = 0;
  virtual void remove(int clip) = 0;
  // What cannot be done gives back why; composed, else empty.
  virtual std::string copy(int clip) = 0;
  /// Parts a clip at the playhead, at which it lies.
  virtual std::string split(int clip) = 0;

  /// Goes to a tab, 1 to 7, with a clip in hand.
  virtual void openTab(int tab, int clip) = 0;
  virtual void openTrimmer(int clip) = 0;
  /// The menu of a clip, or with 0 that of the list, with its corner at a place of the screen.
  virtual void openMenu(int clip, int x, int y) = 0;
};

}  // namespace kvo
