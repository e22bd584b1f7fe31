#include "editor/compiler/keyframe_copies.h"

#include <algorithm>
#include <set>
#include <utility>

namespace kvo {
namespace {

constexpr double kJustBehindStart = 0.000001;  // seconds; at 0 a keyframe counts as the base one

using Keyframes = std::vector<const Keyframe*>;

bool anyCounts(const Keyframes& keyframes, const KeyframeSpan& span) {
  return std::ranges::any_of(keyframes, [&](const auto* k) { return span.reaches(*k); });
}

Keyframe placed(Keyframe values, double seconds, Long frame) {
  values.Time = Value(std::max(seconds, kJustBehindStart));
  values.FrameNo = frame;
  return values;
}

void addEffectBehind(std::vector<Keyframe>& copies, const Keyframes& all, const KeyframeSpan& span,
                     double seconds, Long frame) {
  if (all.size() == 1 && isBase(*all.front())) return copies.push_back(*all.front());
  if (anyCounts(all, span)) copies.push_back(placed(valuesAt(all, span, seconds), seconds, frame));
  for (const auto* k : all) {
    if (!isBase(*k) && k->Time.number() > seconds && k->FrameNo > frame) copies.push_back(*k);
  }
}

// The level that a blur begins with goes by its last keyframe, which is another now.
void keepBeginning(std::vector<Keyframe>& added, const Keyframes& all, Keyframes left,
                   const KeyframeSpan& before, const KeyframeSpan& now, Long firstFrame) {
  for (const auto& k : added) left.push_back(&k);
  auto wanted = valuesAt(all, before, before.markIn);
  auto begins = valuesAt(left, now, now.markIn);
  wanted.FrameNo = begins.FrameNo = firstFrame;
  if (begins == wanted) return;
  added.push_back(placed(std::move(wanted), before.markIn, firstFrame));
}

}  // namespace

std::vector<Keyframe> keyframesOfCopy(const Collection& collection, const Movie& clip, const Movie& copy,
                                      Single movieRate) {
  std::vector<Keyframe> copies;
  const double seconds = copy.LoopStart().number();
  if (clip.IsStill() || seconds == clip.LoopStart().number()) {
    for (int i = 1; i <= collection.KeyframeList.count(); ++i) {
      const auto& k = collection.KeyframeList[i];
      if (k.ClipName == clip.KeyID()) copies.push_back(k);
    }
  } else {
    const KeyframeIndex index(collection);
    for (const int effect : index.effectsOf(clip.KeyID()))
      addEffectBehind(copies, index.of(clip.KeyID(), effect), keyframeSpan(clip, movieRate), seconds,
                      framesOf(seconds, movieRate));
  }
  for (auto& k : copies) k.ClipName = copy.KeyID();
  return copies;
}

void endKeyframes(Collection& collection, const Movie& before, const Movie& clip, Single movieRate) {
  const KeyframeIndex index(collection);
  const auto span = keyframeSpan(before, movieRate);
  const auto now = keyframeSpan(clip, movieRate);
  std::vector<Keyframe> added;
  std::set<const Keyframe*> left;
  for (const int effect : index.effectsOf(clip.KeyID())) {
    const auto& all = index.of(clip.KeyID(), effect);
    Keyframes stay;
    std::ranges::copy_if(all, std::back_inserter(stay), [&](const auto* k) { return now.reaches(*k); });
    if (stay.size() == all.size() || !anyCounts(all, span)) continue;
    for (const auto* k : all) {
      if (!now.reaches(*k)) left.insert(k);
    }
    std::vector<Keyframe> fresh;
    const double end = clip.LoopEnd().number();
    const bool hasEnd = std::ranges::any_of(stay, [&](const auto* k) { return k->FrameNo == now.last; });
    if (!hasEnd) fresh.push_back(placed(valuesAt(all, span, end), end, now.last));
    keepBeginning(fresh, all, stay, span, now, framesOf(span.markIn, movieRate));
    std::ranges::move(fresh, std::back_inserter(added));
  }
  collection.KeyframeList.removeIf([&](const Keyframe& k) { return left.contains(&k); });
  for (auto& k : added) collection.KeyframeList.add(std::move(k));
}

}  // namespace kvo
