// Keyframes in a document: the values of one effect of one clip, moving from frame to frame.
#pragma once

#include "core/records/collection.h"
#include "editor/compiler/timeline_clips.h"

#include <map>
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

/// The keyframes of every clip and effect, sorted as they are written. Made once for a compile, so that its
/// cost grows with the number of keyframes and not with their product with the clips. Invalid after a change.
class KeyframeIndex {
 public:
  explicit KeyframeIndex(const Collection& collection);

  /// Those of the clip with this KeyID, in the order of their frames.
  [[nodiscard]] const std::vector<const Keyframe*>& of(Long keyId, int effectNo) const;

  /// True if the clip has any.
  [[nodiscard]] bool has(Long keyId) const;

 private:
  std::map<std::pair<Long, int>, std::vector<const Keyframe*>> sorted_;
};

/// One parameter that moves from keyframe to keyframe, as whole lines, times in seconds from the clip's start
/// on the timeline. Colours and the texture do not move: the first keyframe's stands. Empty when no keyframe
/// lies within the clip.
std::string WriteKeyframesToTimeLine(const KeyframeIndex& index, const TimelineClip& clip,
                                     std::string_view paramName, int effectNo, Single movieRate);

}  // namespace kvo
