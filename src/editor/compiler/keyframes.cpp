#include "editor/compiler/keyframes.h"

#include "base/text.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <set>

namespace kvo {
namespace {

constexpr std::size_t kValueWidth = 30;  // characters of a value that are written, its last ones
constexpr double kSameTime = 0.000005;   // seconds: half of the last digit that is written of them
constexpr double kSmallestStep = 0.001;  // of a value between two keyframes
constexpr int kWholeBlur = 100;
constexpr int kWholeMotion = 50;

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
double initialLevel(std::span<const Keyframe* const> keyframes) {
  const Keyframe* last = nullptr;
  for (const auto* k : keyframes) {
    if (last == nullptr || k->FrameNo >= last->FrameNo) last = k;
  }
  return last == nullptr ? 0 : last->Param[0].number();
}

// Numbers go from one keyframe to the next in a straight line. Flags and texts stay.
Value between(const Value& a, const Value& b, double share) {
  const auto from = a.wholeNumber();
  const auto to = b.wholeNumber();
  if (!from || !to) return a;
  return std::round((*from + (*to - *from) * share) / kSmallestStep) * kSmallestStep;
}

Keyframe between(Keyframe a, const Keyframe& b, double share) {
  const std::size_t moving = a.EffectNo == kMotionBlurEffect ? 2 : a.Param.size();
  for (std::size_t i = 0; i < moving; ++i) a.Param[i] = between(a.Param[i], b.Param[i], share);
  a.Transparency =
      static_cast<Single>(between(decimal(a.Transparency), decimal(b.Transparency), share).number());
  return a;
}

Keyframe beginning(std::span<const Keyframe* const> all, Keyframe first) {
  const bool rises = initialLevel(all) > 0;
  if (first.EffectNo == kBlurEffect) {
    first.Param[0] = rises ? kWholeBlur : 0;
  } else if (first.EffectNo == kMotionBlurEffect) {
    first.Param[0] = rises ? kWholeMotion : 0;
  } else if (all.size() > 1) {
    first.Transparency = first.Transparency > 50 ? 100.0F : 0.0F;
  }
  return first;
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
        {FormatMask(isBase(k) ? 0 : k.FrameNo, "0######") + " " + std::to_string(++place), &k});
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

std::vector<int> KeyframeIndex::effectsOf(Long keyId) const {
  std::vector<int> effects;
  for (auto at = sorted_.lower_bound({keyId, std::numeric_limits<int>::min()});
       at != sorted_.end() && at->first.first == keyId; ++at)
    effects.push_back(at->first.second);
  return effects;
}

bool KeyframeIndex::has(Long keyId) const { return !effectsOf(keyId).empty(); }

KeyframeSpan keyframeSpan(const Movie& clip, Single movieRate) {
  if (clip.IsStill()) return {0, clip.LoopEndFrames()};
  return {clip.LoopStart().number(), framesOf(clip.LoopEnd().number(), movieRate)};
}

Keyframe valuesAt(std::span<const Keyframe* const> all, const KeyframeSpan& span, double seconds) {
  const Keyframe* first = nullptr;
  const Keyframe* ahead = nullptr;
  const Keyframe* behind = nullptr;
  for (const auto* k : all) {
    if (!span.reaches(*k)) continue;
    if (first == nullptr) first = k;
    if (isBase(*k)) continue;
    const double time = k->Time.number();
    if (time < seconds + kSameTime) {
      if (ahead == nullptr || time >= ahead->Time.number()) ahead = k;
    } else if (behind == nullptr || time < behind->Time.number()) {
      behind = k;
    }
  }
  if (first == nullptr) return {};
  auto values = ahead != nullptr ? *ahead : beginning(all, *first);
  const double from = ahead != nullptr ? ahead->Time.number() : span.markIn;
  if (behind != nullptr)
    values = between(values, *behind, std::max(0.0, seconds - from) / (behind->Time.number() - from));
  values.Time = Value(seconds);
  values.FC = first->FC;
  values.BC = first->BC;
  values.EC = first->EC;
  values.TextureFile = first->TextureFile;
  return values;
}

std::string WriteKeyframesToTimeLine(const KeyframeIndex& index, const TimelineClip& clip,
                                     std::string_view paramName, int effectNo, Single movieRate) {
  const auto& record = *clip.record;
  const auto& all = index.of(record.KeyID(), effectNo);
  auto span = keyframeSpan(record, movieRate);
  if (!record.IsStill()) span = {clip.LoopStart.number(), framesOf(clip.LoopEnd.number(), movieRate)};
  const auto first = std::ranges::find_if(all, [&](const auto* k) { return span.reaches(*k); });
  if (first == all.end()) return {};
  const auto name = effectNo == kBlurEffect ? std::string_view("PixelRadius") : paramName;
  if (const auto fixed = fixedValue(**first, name))
    return tag::openParam(name, *fixed) + std::string(tag::kEndParam);

  std::vector<std::pair<std::string, std::string>> keys;  // time and value
  for (const auto* k : all) {
    const double time = k->Time.number() - span.markIn;
    if (time < kSameTime || !span.reaches(*k)) continue;
    keys.emplace_back(keyTimeText(time / speedOf(clip)), movingValue(*k, name, effectNo));
  }
  std::sort(keys.begin(), keys.end());
  const auto begins = movingValue(valuesAt(all, span, span.markIn), name, effectNo);
  auto text = tag::openParam(name, name == "Add" ? begins : shortNumber(ToNumber(begins)));
  for (const auto& [time, value] : keys) {
    const auto shown = std::string_view(value).substr(value.size() - std::min(kValueWidth, value.size()));
    if (time != keyTimeText(0)) text += tag::keyframe(time, trimmed(shown));
  }
  return text.append(tag::kEndParam);
}

}  // namespace kvo
