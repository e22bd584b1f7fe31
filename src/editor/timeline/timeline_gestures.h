// What the hand does on a timeline, as data: each is one change of the collection, or one look at it.
#pragma once

#include "core/records/field_types.h"
#include "editor/timeline/timeline_hit.h"

#include <optional>
#include <string>
#include <variant>

namespace kvo {

/// The clip goes ahead of the one that has the number `before` now.
struct MoveGesture {
  int clip = 0;
  int before = 0;
  bool operator==(const MoveGesture&) const = default;
};
/// A place in the clip's file.
struct MarkGesture {
  int clip = 0;
  ClipEdge edge = ClipEdge::In;
  double seconds = 0;
  Long frame = 0;  ///< 0 where pictures are not counted
  bool operator==(const MarkGesture&) const = default;
};
/// A transition over so long into the clip; 0 for a cut.
struct TransInGesture {
  int clip = 0;
  int tenths = 0;  ///< of a second
  bool operator==(const TransInGesture&) const = default;
};
struct FadeGesture {
  int clip = 0;
  ClipEdge edge = ClipEdge::In;
  int tenths = 0;  ///< of a second
  bool operator==(const FadeGesture&) const = default;
};
struct SeekGesture {
  double seconds = 0;  ///< of the movie
  bool operator==(const SeekGesture&) const = default;
};
struct RangeGesture {
  TimelineRange range;
  bool operator==(const RangeGesture&) const = default;
};
using TimelineGesture = std::variant<std::monostate, MoveGesture, MarkGesture, TransInGesture, FadeGesture,
                                     SeekGesture, RangeGesture>;

/// What a drag would do if it ended here, and what is said beside the pointer meanwhile.
struct TimelineReading {
  TimelineGesture gesture;
  std::string text;            ///< "Mark-Out 11.60 s  frame 290"
  std::string reason;          ///< why it goes no further, or does nothing
  std::optional<double> line;  ///< seconds of the movie: where an edge or a drop place is drawn
};

/// The keys that are held.
struct TimelineHeld {
  bool shift = false;    ///< in the ruler: a range
  bool control = false;  ///< the wheel zooms
  bool alt = false;      ///< nothing snaps
};

struct TimelineDrag {
  TimelineHit hit;  ///< what was taken hold of
  TimelinePoint from;
  TimelinePoint to;
  TimelineHeld held;
};

/// What a drag means. Nothing is ever overwritten and no gap arises: marks stay within their file,
/// transitions within the limits of the two clips, clips go between clips and music goes behind them.
TimelineReading meaningOf(const TimelineBlocks& blocks, const TimelineSight& sight,
                          const TimelineMarks& marks, const TimelineDrag& drag);

/// The same for a mark that goes by so many pictures; by hundredths of a second where they are not counted.
TimelineReading markStep(const TimelineBlock& block, ClipEdge edge, int pictures);

/// What a mark says that stays, as keyframes are being set.
TimelineReading heldMarks(ClipEdge edge);

}  // namespace kvo
