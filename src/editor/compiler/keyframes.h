// Keyframes: the values of one effect of one clip at one frame. What a compile writes of them, and the rules
// by which they come and go.
#pragma once

#include "editor/compiler/compilation.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

inline constexpr int kBlurEffect = 100;        ///< effect number of Blur
inline constexpr int kMotionBlurEffect = 200;  ///< effect number of MotionBlur
inline constexpr int kFirstFullRow = 8;        ///< table rows below this have no parameters

/// The keyframes of every clip and effect, sorted as they are written. Made once for a compile, so that its
/// cost grows with the number of keyframes and not with their product with the clips. Invalid after a change.
class KeyframeIndex {
 public:
  explicit KeyframeIndex(const Compilation& c);

  /// Those of the clip with this KeyID, in the order of their frames.
  [[nodiscard]] const std::vector<const Keyframe*>& of(Long keyId, int effectNo) const;

 private:
  std::map<std::pair<Long, int>, std::vector<const Keyframe*>> sorted_;
};

/// True if the clip has a keyframe at the frame; an `effectNo` of 0 is the effect being worked on.
bool KeyFrameExists(const Compilation& c, int clipNo, Long frameNo, int effectNo);

/// The number of keyframes of the clip and effect; a `clipNo` of 0 is the clip in hand.
int KeyframeCount(const Compilation& c, int effectNo, int clipNo);

/// Appends one parameter that moves from keyframe to keyframe, times in seconds from the clip's start on the
/// timeline. Colours and the texture do not move: the first keyframe's stands. Writes nothing when no
/// keyframe lies within the clip.
void WriteKeyframesToTimeLine(const Compilation& c, const KeyframeIndex& index, std::string& text,
                              std::string_view paramName, int clipNo, int effectNo);

/// The name, the eight parameters and the rest of a base keyframe.
struct BaseKeyframe {
  std::string name;
  std::array<std::string, 8> param{"0", "0", "0", "0", "0", "0", "0", "0"};
  std::string transparency = "0";
  std::string foreColor, backColor, extraColor, texture;
};

/// Adds the keyframe that an effect begins with to the clip in hand, or, with `update`, overwrites it. But
/// for "MotionBlur" the values are those of the effects table.
void WriteBaseKeyFrameToCollection(const Compilation& c, BaseKeyframe base, bool update);

/// The base keyframe of the effect being worked on; a box tells when the clip has one at frame 0 already.
void AddSingleBaseKeyFrame(const Compilation& c);

/// The list index, from 1, of the keyframe of the clip in hand at frame 0 for the effect being worked on.
std::optional<int> GetBaseKeyFrameLink(const Compilation& c);

/// Adds a keyframe with these values to the clip in hand and the effect being worked on. False, with a box,
/// when the frame has one already. A second keyframe brings the first one's level to 0 or 100.
bool AddKeyFrame(const Compilation& c, Long frameNo, Keyframe values);

/// Deletes line `line` of the keyframe list, counted from 1. False when it is the only one: that stays.
bool deleteKeyframe(const Compilation& c, int line);

/// Sets HasKeyFrames of the clips that own keyframes and removes keyframes whose clip is gone.
void ValidateKeyFrames(const Compilation& c);

/// Removes the keyframes of the clip in hand and the effect being worked on, all but the base one.
void KillAllKeyframeData(const Compilation& c);

/// Removes every keyframe of the clip; with an effect number only that effect's.
void removeKeyframes(const Compilation& c, int clipNo, std::optional<int> effectNo);

/// The lines of the keyframe list for the clip in hand and the effect being worked on.
std::vector<std::string> AddKeyFramesToList(const Compilation& c);

}  // namespace kvo
