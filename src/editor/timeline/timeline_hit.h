// What lies under a point of the timeline.
#pragma once

#include "editor/timeline/timeline_sight.h"

#include <optional>

namespace kvo {

enum class TimelinePart {
  Nothing,
  Clip,
  Music,
  MarkIn,  ///< the edges of a clip or of music
  MarkOut,
  Wedge,
  WedgeEnd,  ///< where the transition ends
  Effects,   ///< badges, in the order of TimelineBadge
  Keyframes,
  Colours,
  Overlay,
  FadeIn,  ///< handles
  FadeOut,
  Ruler,
  Playhead,  ///< its head in the ruler
  RangeFrom,
  RangeTo,
};

/// The part that a badge is.
constexpr TimelinePart partOf(TimelineBadge badge) {
  return static_cast<TimelinePart>(static_cast<int>(TimelinePart::Effects) + static_cast<int>(badge));
}

/// The badge that a part is, if it is one.
constexpr std::optional<TimelineBadge> badgeOf(TimelinePart part) {
  const int place = static_cast<int>(part) - static_cast<int>(TimelinePart::Effects);
  if (place < 0 || place >= static_cast<int>(kTimelineBadges)) return std::nullopt;
  return static_cast<TimelineBadge>(place);
}

struct TimelineHit {
  TimelinePart part = TimelinePart::Nothing;
  int clip = 0;  ///< whose it is; 0 for none

  bool operator==(const TimelineHit&) const = default;
};

/// A stretch of the movie, seconds.
struct TimelineRange {
  double from = 0;
  double to = 0;

  bool operator==(const TimelineRange&) const = default;
};

/// What is drawn over the blocks.
struct TimelineMarks {
  int clip = 0;         ///< in hand, whose edges are seen; 0 for none
  double playhead = 0;  ///< seconds
  std::optional<TimelineRange> range;

  bool operator==(const TimelineMarks&) const = default;
};

/// What is at a point. The clip in hand goes ahead of its neighbours where their edges meet.
TimelineHit hitAt(const TimelineBlocks& blocks, const TimelineSight& sight, const TimelineMarks& marks,
                  const TimelinePoint& at);

/// The clip, of those with a picture, ahead of which something goes that is let go at `x`: by the middles of
/// the blocks. One more than the last one's number is behind all of them, 1 where there are none.
int clipBehind(const TimelineBlocks& blocks, const TimelineSight& sight, double x);
/// The same for music. In a stack the lanes count.
int musicBehind(const TimelineBlocks& blocks, const TimelineSight& sight, const TimelinePoint& at);

}  // namespace kvo
