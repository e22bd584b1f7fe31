// The movie as a row of blocks: what a timeline shows of each clip, and where. Made anew when the collection
// has changed; what is in view is found in it without going over all of it.
#pragma once

#include "editor/compiler/compile_options.h"
#include "editor/compiler/timeline_clips.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace kvo {

enum class ClipEdge { In, Out };

/// What stands as a sign on a clip's title, from the right.
enum class TimelineBadge { Effects, Keyframes, Colours, Overlay };
inline constexpr std::size_t kTimelineBadges = 4;

/// A clip with its place. Times are seconds: start, stop, overlap and fades of the movie, marks of the file.
struct TimelineBlock {
  int clip = 0;  ///< its number in the collection, from 1
  double start = 0;
  double stop = 0;
  std::string name;  ///< as it is listed
  std::string file;
  double markIn = 0;
  double markOut = 0;
  double speed = 1;
  double sourceLength = 0;  ///< of the whole file; 0 where it has none, as a still, or it is not known
  double frameRate = 0;     ///< pictures a second on the average; 0 where it is not known
  bool isStill = false;
  bool isMissing = false;                     ///< its file is gone
  bool isHeard = false;                       ///< its sound goes into the movie
  bool isTrimmed = false;                     ///< music that ends with the video ahead of its Mark-Out
  std::string transition;                     ///< into it; empty for a cut
  double overlap = 0;                         ///< that the transition lasts
  int longestTransition = 0;                  ///< tenths of a second
  std::array<int, kTimelineBadges> badges{};  ///< how many of each there are; of the last two 1 at most
  double fadeIn = 0;
  double fadeOut = 0;
  int lane = 0;  ///< of music, from 0

  [[nodiscard]] double length() const { return stop - start; }
  [[nodiscard]] int badge(TimelineBadge which) const { return badges[static_cast<std::size_t>(which)]; }
  /// What the file shows at a time of the movie, and back; also beyond the block.
  [[nodiscard]] double sourceAt(double seconds) const { return markIn + (seconds - start) * speed; }
  [[nodiscard]] double movieAt(double source) const { return start + (source - markIn) / speed; }
};

struct TimelineBlocks {
  std::vector<TimelineBlock> clips;  ///< with a picture, in the collection's order
  std::vector<TimelineBlock> music;  ///< that is laid under them
  std::vector<double> reach;         ///< the latest stop of the clips up to each
  int lanes = 0;                     ///< of music
  int leftOut = 0;                   ///< clips of music that the movie is without
  bool isStacked = false;            ///< all music begins with the movie
  double videoEnd = 0;
  double musicEnd = 0;

  [[nodiscard]] bool empty() const { return clips.empty() && music.empty(); }
  [[nodiscard]] double end() const { return videoEnd > musicEnd ? videoEnd : musicEnd; }
  /// Null for a clip that the movie is without.
  [[nodiscard]] const TimelineBlock* of(int clip) const;
  /// The index of the first clip that stops behind `seconds`; clips.size() for none.
  [[nodiscard]] std::size_t firstBehind(double seconds) const;
  /// The clip that is seen at `seconds`, of two in a transition the second; null for none.
  [[nodiscard]] const TimelineBlock* seenAt(double seconds) const;
};

/// The blocks of the collection's clips where a render puts them, whatever their records say of an earlier
/// one; the records stay.
TimelineBlocks blocksOf(TimelineClips clips, const Collection& collection, const CompileOptions& options);

/// "2 effects", in the user's language.
std::string badgeName(const TimelineBlock& block, TimelineBadge which);

/// "Clip 2, lake at dusk.mpg, 8.4 seconds, Dissolve over 2.0 seconds, 2 effects", in the user's language.
std::string spokenName(const TimelineBlock& block, bool isMusic);

}  // namespace kvo
