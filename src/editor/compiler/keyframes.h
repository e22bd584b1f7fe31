// Keyframes in a document: the values of one effect of one clip, moving from frame to frame.
#pragma once

#include "core/records/collection.h"
#include "editor/compiler/timeline_clips.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

inline constexpr int kBlurEffect = 100;        ///< effect number of Blur
inline constexpr int kMotionBlurEffect = 200;  ///< effect number of MotionBlur
inline constexpr int kFirstFullRow = 8;        ///< table rows below this have no parameters

/// Frames of a number of seconds at the movie's rate.
Long framesOf(double seconds, Single movieRate);

/// The one that an effect begins with. It stands at its clip's Mark-In, wherever that goes.
inline bool isBase(const Keyframe& keyframe) { return keyframe.Time.number() <= 0; }

/// The keyframes of every clip and effect, sorted as they are written. Made once for a compile, so that its
/// cost grows with the number of keyframes and not with their product with the clips. Invalid after a change.
class KeyframeIndex {
 public:
  explicit KeyframeIndex(const Collection& collection);

  /// Those of the clip with this KeyID, in the order of their frames, a base one first.
  [[nodiscard]] const std::vector<const Keyframe*>& of(Long keyId, int effectNo) const;

  /// The numbers of the effects that it has any of.
  [[nodiscard]] std::vector<int> effectsOf(Long keyId) const;

  /// True if the clip has any.
  [[nodiscard]] bool has(Long keyId) const;

 private:
  std::map<std::pair<Long, int>, std::vector<const Keyframe*>> sorted_;
};

/// The part of a file in which keyframes count.
struct KeyframeSpan {
  double markIn =
      0;          ///< seconds, on the keyframes' clock, which runs from a file's start and a still's Mark-In
  Long last = 0;  ///< frame of the movie, or of a still

  /// Whether it comes to a keyframe at all.
  [[nodiscard]] bool reaches(const Keyframe& keyframe) const {
    return isBase(keyframe) || keyframe.FrameNo <= last;
  }
};
KeyframeSpan keyframeSpan(const Movie& clip, Single movieRate);

/// What an effect of a clip comes to at a place, as a keyframe there: `all` are its keyframes, of which at
/// least one counts. At the Mark-In it is what the effect begins with: the level of a table's effect that
/// moves, and a blur, begin whole or not at all, unless a keyframe lies there or ahead of it.
Keyframe valuesAt(std::span<const Keyframe* const> all, const KeyframeSpan& span, double seconds);

/// One parameter that moves from keyframe to keyframe, as whole lines, times in seconds from the clip's start
/// on the timeline. Colours and the texture do not move: the first keyframe's stands. Empty when no keyframe
/// lies within the clip.
std::string WriteKeyframesToTimeLine(const KeyframeIndex& index, const TimelineClip& clip,
                                     std::string_view paramName, int effectNo, Single movieRate);

}  // namespace kvo
