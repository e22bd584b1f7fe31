// Keyframes: the values of one effect of one clip at one frame, and the rules by which they come and go.
#pragma once

#include "editor/compiler/keyframes.h"
#include "editor/tabs/editing.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// The list numbers of the keyframes of the clip in hand and the effect being worked on, by line.
std::vector<int> keyframesInHand(const Editing& e);

/// Sets the frame of a keyframe of the clip in hand, and its time by it: from the file's start on, of a still
/// from its Mark-In.
void placeKeyframe(const Editing& e, Keyframe& keyframe, Long frameNo);

/// The box that tells that a frame has a keyframe already.
void tellTakenFrame(const Editing& e, Long frameNo);

/// True if the clip has a keyframe at the frame; an `effectNo` of 0 is the effect being worked on.
bool KeyFrameExists(const Editing& e, int clipNo, Long frameNo, int effectNo);

/// The number of keyframes of the clip and effect; a `clipNo` of 0 is the clip in hand.
int KeyframeCount(const Editing& e, int effectNo, int clipNo);

/// The name, the eight parameters and the rest of a base keyframe.
struct BaseKeyframe {
  std::string name;
  std::array<std::string, 8> param{"0", "0", "0", "0", "0", "0", "0", "0"};
  std::string transparency = "0";
  std::string foreColor, backColor, extraColor, texture;
};

/// Adds the keyframe that an effect begins with to the clip in hand, or, with `update`, overwrites it. But
/// for "MotionBlur" the values are those of the effects table.
void WriteBaseKeyFrameToCollection(const Editing& e, BaseKeyframe base, bool update);

/// The base keyframe of the effect being worked on; a box tells when the clip has one already.
void AddSingleBaseKeyFrame(const Editing& e);

/// The list index, from 1, of the base keyframe of the clip in hand for the effect being worked on.
std::optional<int> GetBaseKeyFrameLink(const Editing& e);

/// Brings the level of an effect of the table to 0 or 100 where it has one keyframe: with more it begins
/// there.
void CheckKeyFrameZeroInitValue(const Editing& e);

/// Adds a keyframe with these values to the clip in hand and the effect being worked on. False, with a box,
/// when the frame has one already.
bool AddKeyFrame(const Editing& e, Long frameNo, Keyframe values);

/// Deletes line `line` of the keyframe list, counted from 1. False when it is the only one: that stays.
bool deleteKeyframe(const Editing& e, int line);

/// Removes the keyframes of the clip in hand and the effect being worked on, all but the base one.
void KillAllKeyframeData(const Editing& e);

/// Removes every keyframe of the clip; with an effect number only that effect's.
void removeKeyframes(const Editing& e, int clipNo, std::optional<int> effectNo);

struct FrameRange {
  Long first = 0, last = 0;

  /// Where a keyframe stands among them.
  [[nodiscard]] Long frameOf(const Keyframe& keyframe) const {
    return isBase(keyframe) ? first : keyframe.FrameNo;
  }
};

/// The frames of the clip between its marks, at the movie's rate; those of a still as its record has them.
FrameRange framesThatCount(const Editing& e, const Movie& clip);

/// The lines of the keyframe list for the clip in hand and the effect being worked on.
std::vector<std::string> AddKeyFramesToList(const Editing& e);

}  // namespace kvo
