#include "editor/compiler/keyframes.h"

#include "base/text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effects_file.h"

#include <algorithm>
#include <array>
#include <set>

namespace kvo {
namespace {

constexpr std::string_view kFrameMask = "0######";
constexpr std::string_view kTimeMask = "0#####.#####";
constexpr std::size_t kValueWidth = 30;

std::string openLine(std::string_view name, std::string_view value) {
  return blanks(20) + "<param name=" + quoted(name) + " value=" + quoted(value) + ">\r\n";
}

std::string closeLine() { return blanks(20) + "</param>\r\n"; }

Long toFrames(double seconds, const KVO2& settings) {
  return toLongClamped(seconds * ToNumber(ShortText(settings.preferences().OutPutFrameRate)));
}

Long endFrame(const Compilation& c, const Movie& clip) {
  return clip.IsStill() ? clip.LoopEndFrames() : toFrames(clip.LoopEnd().number(), c.settings);
}

int controlNumber(std::string_view name) {
  constexpr std::string_view kControl = "Control";
  const bool isControl = name.starts_with(kControl) && name.ends_with("Value") && name.size() == 13;
  return isControl ? name[kControl.size()] - '0' : 0;
}

// The text that never moves, or nothing for a parameter that does.
std::optional<std::string> fixedValue(const Keyframe& k, std::string_view name) {
  if (name == "RGBForeColor") return k.FC;
  if (name == "RGBBackColor") return k.BC;
  if (name == "RGBExtraColor") return k.EC;
  if (name == "TextureURL") return k.TextureFile;
  return std::nullopt;
}

std::string movingValue(const Keyframe& k, std::string_view name, int effectNo) {
  if (effectNo == kBlurEffect) return k.Param[0].text();
  if (effectNo == kMotionBlurEffect) {
    if (name == "Strength") return k.Param[0].text();
    if (name == "Direction") return k.Param[1].text();
    return fieldText(k.Param[2].number() != 0 || sameText(k.Param[2].text(), "True"));
  }
  if (name == "Transparency") return fieldText(k.Transparency);
  const int control = controlNumber(name);
  return control >= 1 && control <= 8 ? k.Param[static_cast<std::size_t>(control - 1)].text() : std::string();
}

// The value of the last frame decides where a level begins.
double initialLevel(const std::vector<const Keyframe*>& keyframes, int effectNo) {
  const Keyframe* last = nullptr;
  for (const auto* k : keyframes) {
    if (last == nullptr || k->FrameNo >= last->FrameNo) last = k;
  }
  if (last == nullptr) return 0;
  return effectNo == kBlurEffect || effectNo == kMotionBlurEffect ? last->Param[0].number()
                                                                  : static_cast<double>(last->Transparency);
}

std::string startValue(const std::vector<const Keyframe*>& all, const Keyframe& first, std::string_view name,
                       int effectNo) {
  if (effectNo == kBlurEffect) return initialLevel(all, effectNo) > 0 ? "100" : "0";
  if (effectNo == kMotionBlurEffect)
    return name == "Strength" && initialLevel(all, effectNo) > 0 ? "50" : "0";
  if (name == "Transparency" && all.size() > 1) return first.Transparency > 50 ? "100" : "0";
  return ShortText(ToNumber(movingValue(first, name, effectNo)));
}

// List numbers of the keyframes of the clip in hand and the effect being worked on.
std::vector<int> ownKeyframes(const Compilation& c) {
  const auto keyId = c.clips()[c.collection.icurMov].KeyID();
  const auto& list = c.collection.KeyframeList;
  std::vector<int> own;
  for (int i = 1; i <= list.count(); ++i) {
    if (list[i].ClipName == keyId && list[i].EffectNo == c.settings.state.KeyframeEffectNo) own.push_back(i);
  }
  return own;
}

std::string noneAsEmpty(const std::string& text) { return text == "None" ? std::string() : text; }

}  // namespace

KeyframeIndex::KeyframeIndex(const Compilation& c) {
  struct Entry {
    std::string key;
    const Keyframe* keyframe;
  };
  std::map<std::pair<Long, int>, std::vector<Entry>> entries;
  const auto& list = c.collection.KeyframeList;
  for (int i = 1; i <= list.count(); ++i) {
    const auto& k = list[i];
    // Sorted as text: the frame with its leading zeros, then the place in the list.
    entries[{k.ClipName, k.EffectNo}].push_back(
        {FormatMask(k.FrameNo, kFrameMask) + " " + std::to_string(i), &k});
  }
  for (auto& [owner, unsorted] : entries) {
    std::sort(unsorted.begin(), unsorted.end(), [](const Entry& a, const Entry& b) { return a.key < b.key; });
    auto& sorted = sorted_[owner];
    for (const auto& entry : unsorted) sorted.push_back(entry.keyframe);
  }
}

const std::vector<const Keyframe*>& KeyframeIndex::of(Long keyId, int effectNo) const {
  static const std::vector<const Keyframe*> kNone;
  const auto found = sorted_.find({keyId, effectNo});
  return found == sorted_.end() ? kNone : found->second;
}

bool KeyFrameExists(const Compilation& c, int clipNo, Long frameNo, int effectNo) {
  if (effectNo == 0) effectNo = c.settings.state.KeyframeEffectNo;
  const auto keyId = c.clips()[clipNo].KeyID();
  const auto& list = c.collection.KeyframeList;
  for (int i = 1; i <= list.count(); ++i) {
    if (list[i].ClipName == keyId && list[i].FrameNo == frameNo && list[i].EffectNo == effectNo) return true;
  }
  return false;
}

int KeyframeCount(const Compilation& c, int effectNo, int clipNo) {
  if (clipNo == 0) clipNo = c.collection.icurMov;
  if (clipNo < 1 || clipNo > c.clips().count()) return 0;
  const auto keyId = c.clips()[clipNo].KeyID();
  const auto& list = c.collection.KeyframeList;
  int count = 0;
  for (int i = 1; i <= list.count(); ++i)
    count += list[i].ClipName == keyId && list[i].EffectNo == effectNo ? 1 : 0;
  return count;
}

void WriteKeyframesToTimeLine(const Compilation& c, const KeyframeIndex& index, std::string& text,
                              std::string_view paramName, int clipNo, int effectNo) {
  const auto& clip = c.clips()[clipNo];
  const auto& all = index.of(clip.KeyID(), effectNo);
  const auto last = endFrame(c, clip);
  const auto name = effectNo == kBlurEffect ? std::string_view("PixelRadius") : paramName;

  bool opened = false;
  std::vector<std::string> entries;
  for (const auto* k : all) {
    if (k->FrameNo > last) continue;
    const bool isFirst = !std::exchange(opened, true);
    if (isFirst) {
      if (const auto fixed = fixedValue(*k, name)) {
        text += openLine(name, *fixed) + closeLine();
        return;
      }
      text += openLine(name, startValue(all, *k, name, effectNo));
    }
    if (isFirst && k->FrameNo < clip.LoopStartFrames()) continue;
    entries.push_back(FormatMask(k->Time.number() / speedOf(clip), kTimeMask) + blanks(50) +
                      movingValue(*k, name, effectNo));
  }
  if (!opened) return;
  std::sort(entries.begin(), entries.end());
  for (const auto& entry : entries) {
    const auto time = trimmed(std::string_view(entry).substr(0, kValueWidth));
    const auto value =
        trimmed(std::string_view(entry).substr(entry.size() - std::min(kValueWidth, entry.size())));
    if (time == "000000.") continue;
    text += blanks(20) + "<linear time=" + quoted(time) + "  value=" + quoted(value) + "/>\r\n";
  }
  text += closeLine();
}

std::optional<int> GetBaseKeyFrameLink(const Compilation& c) {
  const auto keyId = c.clips()[c.collection.icurMov].KeyID();
  const auto& list = c.collection.KeyframeList;
  for (int i = 1; i <= list.count(); ++i) {
    if (list[i].ClipName == keyId && list[i].EffectNo == c.settings.state.KeyframeEffectNo &&
        list[i].FrameNo == 0)
      return i;
  }
  return std::nullopt;
}

void WriteBaseKeyFrameToCollection(const Compilation& c, BaseKeyframe base, bool update) {
  auto& settings = c.settings;
  auto& clip = c.clips()[c.collection.icurMov];
  if (sameText(trimmed(base.name), "MOTIONBLUR")) {
    settings.state.KeyframeEffectNo = kMotionBlurEffect;
  }
  int effectNo = settings.state.KeyframeEffectNo;
  const bool isTableEffect = effectNo != kBlurEffect && effectNo != kMotionBlurEffect;
  const auto* row = isTableEffect ? GetEffectParams(c, base.name, effectNo) : nullptr;
  if (row != nullptr) {
    base = {row->name,      row->Control,    row->Transparency, row->foreColor,
            row->backColor, row->extraColor, row->texture};
  }
  Keyframe fresh;
  const auto link = update ? GetBaseKeyFrameLink(c) : std::nullopt;
  if (update && !link) return;
  auto& k = update ? c.collection.KeyframeList[*link] : fresh;
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
  k.FrameNo = isTableEffect ? clip.LoopStartFrames() : toFrames(clip.LoopStart().number(), settings);
  k.EffectNo = static_cast<Integer>(effectNo);
  k.ClipName = clip.KeyID();
  k.Time = Value(0);
  if (!update) c.collection.KeyframeList.add(std::move(fresh));
}

void AddSingleBaseKeyFrame(const Compilation& c) {
  const int clipNo = c.collection.icurMov;
  if (KeyFrameExists(c, clipNo, 0, c.settings.state.KeyframeEffectNo)) {
    c.boxes.show({"KVO5 - Duplicate Keyframe warning", "Frame 0 is already a keyframe.", BoxButtons::Ok,
                  BoxIcon::Warning});
    return;
  }
  BaseKeyframe base;
  base.name = c.editor.effects.GetEffectNameFromID(c.settings.state.KeyframeEffectNo);
  WriteBaseKeyFrameToCollection(c, std::move(base), false);
  c.clips()[clipNo].HasKeyFrames(true);
}

bool AddKeyFrame(const Compilation& c, Long frameNo, Keyframe values) {
  const int clipNo = c.collection.icurMov;
  const int effectNo = c.settings.state.KeyframeEffectNo;
  if (KeyFrameExists(c, clipNo, frameNo, effectNo)) {
    c.boxes.show(
        {"KVO5 - Duplicate Keyframe warning",
         "Frame " + std::to_string(frameNo) +
             " is already a keyframe.\r\nUse the slider to position to where you want a new keyframe.",
         BoxButtons::Ok, BoxIcon::Warning});
    return false;
  }
  auto& list = c.collection.KeyframeList;
  const auto own = ownKeyframes(c);
  if (own.size() == 1 && effectNo != kBlurEffect && effectNo != kMotionBlurEffect) {
    auto& first = list[own.front()];
    if (first.Transparency != 100) first.Transparency = first.Transparency >= 50 ? 100.0F : 0.0F;
  }
  values.FrameNo = frameNo;
  values.EffectNo = static_cast<Integer>(effectNo);
  values.ClipName = c.clips()[clipNo].KeyID();
  values.Time = Value(std::max(frameNo / ToNumber(ShortText(c.settings.preferences().OutPutFrameRate)), 0.0));
  list.add(std::move(values));
  c.clips()[clipNo].HasKeyFrames(true);
  return true;
}

bool deleteKeyframe(const Compilation& c, int line) {
  const auto own = ownKeyframes(c);
  if (own.size() < 2 || line < 1 || line > static_cast<int>(own.size())) return false;
  c.collection.KeyframeList.remove(own[static_cast<std::size_t>(line - 1)]);
  return true;
}

void ValidateKeyFrames(const Compilation& c) {
  std::set<Long> keys;
  std::set<Long> owners;
  for (int i = 1; i <= c.clips().count(); ++i) keys.insert(c.clips()[i].KeyID());
  c.collection.KeyframeList.removeIf([&](const Keyframe& k) {
    const bool isOwned = keys.contains(k.ClipName);
    if (isOwned) owners.insert(k.ClipName);
    return !isOwned;
  });
  for (int i = 1; i <= c.clips().count(); ++i) {
    if (owners.contains(c.clips()[i].KeyID())) c.clips()[i].HasKeyFrames(true);
  }
}

void KillAllKeyframeData(const Compilation& c) {
  const auto keyId = c.clips()[c.collection.icurMov].KeyID();
  const int effectNo = c.settings.state.KeyframeEffectNo;
  c.collection.KeyframeList.removeIf([&](const Keyframe& k) {
    return k.ClipName == keyId && k.EffectNo == effectNo && k.Time.number() > 0;
  });
}

void removeKeyframes(const Compilation& c, int clipNo, std::optional<int> effectNo) {
  const auto keyId = c.clips()[clipNo].KeyID();
  c.collection.KeyframeList.removeIf(
      [&](const Keyframe& k) { return k.ClipName == keyId && (!effectNo || k.EffectNo == *effectNo); });
}

std::vector<std::string> AddKeyFramesToList(const Compilation& c) {
  const auto& clip = c.clips()[c.collection.icurMov];
  const auto first =
      clip.IsStill() ? clip.LoopStartFrames() : toFrames(clip.LoopStart().number(), c.settings);
  const auto last = endFrame(c, clip);
  std::vector<std::string> lines;
  for (const int i : ownKeyframes(c)) {
    const auto& k = c.collection.KeyframeList[i];
    const auto* text = k.FrameNo > last    ? "IGNORED - Point after Mark Out - Keyframe No = "
                       : k.FrameNo < first ? "IGNORED - Point before Mark In - Keyframe No = "
                                           : "Keyframe No = ";
    lines.push_back(text + FormatMask(k.FrameNo, kFrameMask));
  }
  return lines;
}

}  // namespace kvo
