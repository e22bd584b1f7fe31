#include "editor/tabs/keyframe_edits.h"

#include "base/text.h"
#include "editor/compiler/durations.h"
#include "editor/tabs/effects_file.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::string_view kFrameMask = "0######";

Long toFrames(double seconds, const KVO2& settings) {
  return framesOf(seconds, settings.preferences().OutPutFrameRate);
}

std::string noneAsEmpty(const std::string& text) { return text == "None" ? std::string() : text; }

}  // namespace

std::vector<int> keyframesInHand(const Editing& e) {
  const auto keyId = e.clips()[e.collection.icurMov].KeyID();
  const auto& list = e.collection.KeyframeList;
  std::vector<int> own;
  for (int i = 1; i <= list.count(); ++i) {
    if (list[i].ClipName == keyId && list[i].EffectNo == e.settings.state.KeyframeEffectNo) own.push_back(i);
  }
  return own;
}

void placeKeyframe(const Editing& e, Keyframe& keyframe, Long frameNo) {
  const auto& clip = e.clips()[e.collection.icurMov];
  const double ahead = clip.IsStill() ? clip.LoopStart().number() : 0;
  keyframe.FrameNo = frameNo;
  keyframe.Time = Value(std::max(frameNo / decimal(e.settings.preferences().OutPutFrameRate) - ahead, 0.0));
}

void tellTakenFrame(const Editing& e, Long frameNo) {
  e.boxes.show({"KVO5 - Duplicate Keyframe warning",
                "Frame " + std::to_string(frameNo) +
                    " is already a keyframe.\r\nUse the slider to position to where you want a new keyframe.",
                BoxButtons::Ok, BoxIcon::Warning});
}

bool KeyFrameExists(const Editing& e, int clipNo, Long frameNo, int effectNo) {
  if (effectNo == 0) effectNo = e.settings.state.KeyframeEffectNo;
  const auto& clip = e.clips()[clipNo];
  const auto range = framesThatCount(e, clip);
  const auto& list = e.collection.KeyframeList;
  for (int i = 1; i <= list.count(); ++i) {
    const auto& k = list[i];
    if (k.ClipName == clip.KeyID() && range.frameOf(k) == frameNo && k.EffectNo == effectNo) return true;
  }
  return false;
}

int KeyframeCount(const Editing& e, int effectNo, int clipNo) {
  if (clipNo == 0) clipNo = e.collection.icurMov;
  if (clipNo < 1 || clipNo > e.clips().count()) return 0;
  const auto keyId = e.clips()[clipNo].KeyID();
  const auto& list = e.collection.KeyframeList;
  int count = 0;
  for (int i = 1; i <= list.count(); ++i)
    count += list[i].ClipName == keyId && list[i].EffectNo == effectNo ? 1 : 0;
  return count;
}

std::optional<int> GetBaseKeyFrameLink(const Editing& e) {
  for (const int number : keyframesInHand(e)) {
    if (isBase(e.collection.KeyframeList[number])) return number;
  }
  return std::nullopt;
}

void WriteBaseKeyFrameToCollection(const Editing& e, BaseKeyframe base, bool update) {
  auto& settings = e.settings;
  auto& clip = e.clips()[e.collection.icurMov];
  if (sameText(trimmed(base.name), "MOTIONBLUR")) {
    settings.state.KeyframeEffectNo = kMotionBlurEffect;
  }
  int effectNo = settings.state.KeyframeEffectNo;
  const bool isTableEffect = effectNo != kBlurEffect && effectNo != kMotionBlurEffect;
  const auto* row = isTableEffect ? GetEffectParams(e, base.name, effectNo) : nullptr;
  if (row != nullptr) {
    base = {row->name,      row->Control,    row->Transparency, row->foreColor,
            row->backColor, row->extraColor, row->texture};
  }
  Keyframe fresh;
  auto link = update ? GetBaseKeyFrameLink(e) : std::nullopt;
  if (update && !link) {  // a part of a split may begin with one that is none
    if (const auto own = keyframesInHand(e); own.size() == 1) link = own.front();
  }
  if (update && !link) return;
  auto& k = update ? e.collection.KeyframeList[*link] : fresh;
  const std::size_t stored = isTableEffect ? 8 : effectNo == kBlurEffect ? 1 : 3;
  for (std::size_t i = 0; i < stored; ++i) k.Param[i] = Value(base.param[i]);
  if (isTableEffect) {
    // A row without a level means the whole effect: at level 0 nothing would be seen of what was just
    // switched on.
    const bool noLevel = trimmed(base.transparency).empty() || (!update && effectNo < kFirstFullRow);
    k.Transparency = noLevel ? 100 : static_cast<Single>(ToNumber(base.transparency));
    k.FC = noneAsEmpty(base.foreColor);
    k.BC = noneAsEmpty(base.backColor);
    k.EC = noneAsEmpty(base.extraColor);
    k.TextureFile = noneAsEmpty(base.texture);
  }
  k.FrameNo = framesThatCount(e, clip).first;
  k.EffectNo = static_cast<Integer>(effectNo);
  k.ClipName = clip.KeyID();
  k.Time = Value(0);
  if (!update) e.collection.KeyframeList.add(std::move(fresh));
}

void AddSingleBaseKeyFrame(const Editing& e) {
  const int clipNo = e.collection.icurMov;
  if (GetBaseKeyFrameLink(e)) {
    e.boxes.show({"KVO5 - Duplicate Keyframe warning", "Frame 0 is already a keyframe.", BoxButtons::Ok,
                  BoxIcon::Warning});
    return;
  }
  BaseKeyframe base;
  base.name = e.editor.effects.GetEffectNameFromID(e.settings.state.KeyframeEffectNo);
  WriteBaseKeyFrameToCollection(e, std::move(base), false);
  e.clips()[clipNo].HasKeyFrames(true);
}

void CheckKeyFrameZeroInitValue(const Editing& e) {
  const int effectNo = e.settings.state.KeyframeEffectNo;
  const auto own = keyframesInHand(e);
  if (own.size() != 1 || effectNo == kBlurEffect || effectNo == kMotionBlurEffect) return;
  auto& first = e.collection.KeyframeList[own.front()];
  if (first.Transparency != 100) first.Transparency = first.Transparency >= 50 ? 100.0F : 0.0F;
}

bool AddKeyFrame(const Editing& e, Long frameNo, Keyframe values) {
  const int clipNo = e.collection.icurMov;
  const int effectNo = e.settings.state.KeyframeEffectNo;
  if (KeyFrameExists(e, clipNo, frameNo, effectNo)) {
    tellTakenFrame(e, frameNo);
    return false;
  }
  CheckKeyFrameZeroInitValue(e);
  placeKeyframe(e, values, frameNo);
  values.EffectNo = static_cast<Integer>(effectNo);
  values.ClipName = e.clips()[clipNo].KeyID();
  e.collection.KeyframeList.add(std::move(values));
  e.clips()[clipNo].HasKeyFrames(true);
  return true;
}

bool deleteKeyframe(const Editing& e, int line) {
  const auto own = keyframesInHand(e);
  if (own.size() < 2 || line < 1 || line > static_cast<int>(own.size())) return false;
  e.collection.KeyframeList.remove(own[static_cast<std::size_t>(line - 1)]);
  return true;
}

void KillAllKeyframeData(const Editing& e) {
  const auto own = keyframesInHand(e);
  if (own.empty()) return;
  const auto* kept = &e.collection.KeyframeList[GetBaseKeyFrameLink(e).value_or(own.front())];
  const auto keyId = kept->ClipName;
  e.collection.KeyframeList.removeIf(
      [&](const Keyframe& k) { return k.ClipName == keyId && k.EffectNo == kept->EffectNo && &k != kept; });
}

void removeKeyframes(const Editing& e, int clipNo, std::optional<int> effectNo) {
  const auto keyId = e.clips()[clipNo].KeyID();
  e.collection.KeyframeList.removeIf(
      [&](const Keyframe& k) { return k.ClipName == keyId && (!effectNo || k.EffectNo == *effectNo); });
}

FrameRange framesThatCount(const Editing& e, const Movie& clip) {
  if (clip.IsStill()) return {clip.LoopStartFrames(), clip.LoopEndFrames()};
  return {toFrames(clip.LoopStart().number(), e.settings), toFrames(clip.LoopEnd().number(), e.settings)};
}

std::vector<std::string> AddKeyFramesToList(const Editing& e) {
  const auto range = framesThatCount(e, e.clips()[e.collection.icurMov]);
  std::vector<std::string> lines;
  for (const int i : keyframesInHand(e)) {
    const auto& k = e.collection.KeyframeList[i];
    const Long frame = range.frameOf(k);
    const auto* text = frame > range.last    ? "IGNORED - Point after Mark Out - Keyframe No = "
                       : frame < range.first ? "IGNORED - Point before Mark In - Keyframe No = "
                                             : "Keyframe No = ";
    lines.push_back(text + FormatMask(frame, kFrameMask));
  }
  return lines;
}

}  // namespace kvo
