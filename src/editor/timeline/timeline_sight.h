// Which part of the movie is in sight, how large, and where things stand on the timeline. Pixels are those of
// interface size 1, from the corner of the timeline.
#pragma once

#include "editor/timeline/timeline_blocks.h"

#include <vector>

namespace kvo {

struct TimelinePoint {
  double x = 0;
  double y = 0;
};

struct TimelineBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  [[nodiscard]] double right() const { return x + width; }
  [[nodiscard]] double bottom() const { return y + height; }
  [[nodiscard]] bool holds(const TimelinePoint& at) const {
    return at.x >= x && at.x < right() && at.y >= y && at.y < bottom();
  }
};

inline constexpr double kLeastScale = 4;  ///< pixels a second, unless the whole movie asks for less
inline constexpr double kLargestScale = 200;
inline constexpr double kLaneHeads = 76;   ///< width of the names of the lanes
inline constexpr double kLanesLeft = 84;   ///< where the time of the left edge stands
inline constexpr double kLanesRight = 16;  ///< left free at the right
inline constexpr double kRulerHeight = 22;
inline constexpr double kTitleHeight = 19;
inline constexpr double kMusicHeight = 30;  ///< of a lane

/// What is shown of the movie.
struct TimelineSight {
  double scale = 20;  ///< pixels a second
  double from = 0;    ///< seconds at the left edge
  int firstLane = 0;  ///< of music
  double width = 1280;
  double height = 202;

  [[nodiscard]] double xOf(double seconds) const { return kLanesLeft + (seconds - from) * scale; }
  [[nodiscard]] double secondsAt(double x) const { return from + (x - kLanesLeft) / scale; }
  [[nodiscard]] double seconds() const;  ///< that there is room for

  bool operator==(const TimelineSight&) const = default;
};

/// How far the left edge can go, in seconds: there is some room behind the end.
double lastFrom(const TimelineSight& sight, double end);
/// The scale at which all of a movie is in sight.
double wholeScale(const TimelineSight& sight, double end);

// Each keeps within the movie's `end`.
void scrollTo(TimelineSight& sight, double end, double from);
/// Another scale; what is at `x` stays there.
void zoomTo(TimelineSight& sight, double end, double scale, double x);
void showWhole(TimelineSight& sight, double end);
/// Scrolls no more than it takes to have these seconds in sight.
void bringInSight(TimelineSight& sight, double end, double start, double stop);

/// The heights of what stands below each other. Pictures of clips grow with the timeline; where it is low
/// they go without the band of their sound.
struct TimelineBands {
  TimelineBox clips;     ///< the lane: title, pictures and sound of the clips
  TimelineBox pictures;  ///< within it
  TimelineBox sound;     ///< within it, of no height where there is no room
  TimelineBox music;     ///< the lanes that there is room for
  int lanes = 1;         ///< of them
};
TimelineBands bandsOf(const TimelineSight& sight, int lanes);

/// A mark of the ruler.
struct TimelineTick {
  double x = 0;
  std::string text;  ///< empty for a small one
};
std::vector<TimelineTick> rulerTicks(const TimelineSight& sight);

/// A block as it is in sight.
struct SeenBlock {
  const TimelineBlock* block = nullptr;  ///< not owned
  TimelineBox box;
  TimelineBox wedge;  ///< of the transition into it, no wider than a hair where there is none
  double openTo = 0;  ///< pixels: where the front of the next clip lies over it, or else its end
  std::array<TimelineBox, kTimelineBadges> badges{};  ///< empty where there is none, or no room
  double fullLevel = 0;  ///< pixels: where its sound is drawn at full level; 0 where it is not drawn
};

/// What is in sight, in order; of clips that are narrower than a pixel one stands for its neighbours.
std::vector<SeenBlock> clipsInSight(const TimelineBlocks& blocks, const TimelineSight& sight);
std::vector<SeenBlock> musicInSight(const TimelineBlocks& blocks, const TimelineSight& sight);

/// Where a fade of a block is taken hold of. Of a block without one, just inside its end.
TimelinePoint fadeHandle(const SeenBlock& seen, const TimelineSight& sight, ClipEdge edge);

}  // namespace kvo
