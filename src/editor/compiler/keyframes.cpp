#include "editor/compiler/keyframes.h"

#include "base/text.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <set>

namespace kvo {
namespace {

constexpr std::size_t kValueWidth = 30;  // characters of a value that are written, its last ones

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
double initialLevel(const std::vector<const Keyframe*>& keyframes) {
  const Keyframe* last = nullptr;
  for (const auto* k : keyframes) {
    if (last == nullptr || k->FrameNo >= last->FrameNo) last = k;
  }
  return last == nullptr ? 0 : last->Param[0].number();
}

std::string startValue(const std::vector<const Keyframe*>& all, const Keyframe& first, std::string_view name,
                       int effectNo) {
  if (effectNo == kBlurEffect) return initialLevel(all) > 0 ? "100" : "0";
  if (effectNo == kMotionBlurEffect) return name == "Strength" && initialLevel(all) > 0 ? "50" : "0";
  if (name == "Transparency" && all.size() > 1) return first.Transparency > 50 ? "100" : "0";
  return shortNumber(ToNumber(movingValue(first, name, effectNo)));
}

}  // namespace

Long framesOf(double seconds, Single movieRate) { return toLongClamped(seconds * decimal(movieRate)); }

KeyframeIndex::KeyframeIndex(const Collection& collection) {
  struct Entry {
    std::string key;
    const Keyframe* keyframe;
  };
  std::set<Long> clips;
  for (int i = 1; i <= collection.MovieList.count(); ++i) clips.insert(collection.MovieList[i].KeyID());
  std::map<std::pair<Long, int>, std::vector<Entry>> entries;
  const auto& list = collection.KeyframeList;
  int place = 0;
  for (int i = 1; i <= list.count(); ++i) {
    const auto& k = list[i];
    if (!clips.contains(k.ClipName)) continue;  // its clip is gone
    // Sorted as text: the frame with its leading zeros, then the place in the list.
    entries[{k.ClipName, k.EffectNo}].push_back(
        {FormatMask(k.FrameNo, "0######") + " " + std::to_string(++place), &k});
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

bool KeyframeIndex::has(Long keyId) const {
  const auto found = sorted_.lower_bound({keyId, std::numeric_limits<int>::min()});
  return found != sorted_.end() && found->first.first == keyId;
}

std::string WriteKeyframesToTimeLine(const KeyframeIndex& index, const TimelineClip& clip,
                                     std::string_view paramName, int effectNo, Single movieRate) {
  const auto& record = *clip.record;
  const auto& all = index.of(record.KeyID(), effectNo);
  const auto last = record.IsStill() ? record.LoopEndFrames() : framesOf(clip.LoopEnd.number(), movieRate);
  const auto name = effectNo == kBlurEffect ? std::string_view("PixelRadius") : paramName;

  std::string text;
  std::vector<std::pair<std::string, std::string>> keys;  // time and value
  for (const auto* k : all) {
    if (k->FrameNo > last) continue;
    const bool isFirst = text.empty();
    if (isFirst) {
      if (const auto fixed = fixedValue(*k, name))
        return tag::openParam(name, *fixed) + std::string(tag::kEndParam);
      text = tag::openParam(name, startValue(all, *k, name, effectNo));
    }
    if (isFirst && k->FrameNo < record.LoopStartFrames()) continue;
    keys.emplace_back(keyTimeText(k->Time.number() / speedOf(clip)), movingValue(*k, name, effectNo));
  }
  if (text.empty()) return text;
  std::sort(keys.begin(), keys.end());
  for (const auto& [time, value] : keys) {
    const auto shown = std::string_view(value).substr(value.size() - std::min(kValueWidth, value.size()));
    if (time != keyTimeText(0)) text += tag::keyframe(time, trimmed(shown));
  }
  return text.append(tag::kEndParam);
}

}  // namespace kvo
