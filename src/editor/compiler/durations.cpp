#include "editor/compiler/durations.h"

#include "base/numbers.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kLongestTransition = 25.0;  // seconds

Value defaultLength(Single duration) { return Value(ShortText(duration)); }

// The timeline length, or the length of the whole source where no section is marked. A still that has neither
// will last as long as stills do.
double lengthOrDuration(const TimelineClip& clip, Single stillDuration) {
  if (const double length = timelineLength(clip); length > 0) return length;
  const double duration = clip.DurationTime.number();
  const bool usesDefault = clip.record->IsStill() && duration <= 0;
  return (usesDefault ? decimal(stillDuration) : duration) / speedOf(clip);
}

double toTenth(double seconds) { return ToNumber(FormatMask(seconds, "0.0")); }

}  // namespace

double decimal(Single value) { return ToNumber(ShortText(value)); }

double speedOf(const Movie& clip) { return secondsFromTenths(clip.Playspeed()); }

double secondsFromTenths(Single tenths) { return decimal(tenths) / 10; }

double timelineLength(const Movie& clip) {
  return (clip.LoopEnd().number() - clip.LoopStart().number()) / speedOf(clip);
}

double timelineLength(const TimelineClip& clip) {
  return (clip.LoopEnd.number() - clip.LoopStart.number()) / speedOf(clip);
}

void giveStillLength(TimelineClip& clip, Single duration) {
  if (!clip.record->IsStill()) return;
  if (clip.LoopStart.number() == 0) clip.LoopStart = "0";
  if (clip.LoopEnd.number() == 0) clip.LoopEnd = defaultLength(duration);
}

double longestTransition(const TimelineClips& clips, int clipNo, Single stillDuration) {
  const double a = lengthOrDuration(clips[clipNo], stillDuration);
  const double b = clipNo == 1 ? a : lengthOrDuration(clips[clipNo - 1], stillDuration);
  return toTenth(std::min({a, b, kLongestTransition}));
}

int holdTransition(TimelineClips& clips, int clipNo, Single stillDuration) {
  auto& clip = clips[clipNo];
  if (clip.TransType.empty()) clip.TransType = "CUT";
  if (clip.LoopEnd.text() == "N/A") clip.LoopEnd = defaultLength(stillDuration);
  if (clip.record->IsStill() && timelineLength(clip) == 0) {
    clip.LoopStart = "0";
    clip.LoopEnd = defaultLength(stillDuration);
  }
  // Into the first clip it fades from nothing, over half of it.
  const double most =
      clipNo == 1 ? timelineLength(clip) * 10 / 2 : longestTransition(clips, clipNo, stillDuration) * 10;
  const int limit = most >= 1 ? toLongClamped(most) : 1;
  if (clip.TransIn > static_cast<Single>(limit)) clip.TransIn = static_cast<Single>(toTenth(limit));
  return limit;
}

Single CalcMinimumDur(const TimelineClip& a, const TimelineClip& b) {
  const auto m = static_cast<Single>(std::min(timelineLength(a), timelineLength(b)));
  if (m < 0.25F) return m;
  if (m < 0.5F) return 0.25F;
  if (m < 1.0F) return 0.5F;
  if (m < 1.5F) return 0.75F;
  if (m < 2.0F) return 1.0F;
  return 2.0F;
}

Long FindShortestCut(const TimelineClips& clips, bool audioOnly) {
  constexpr Long kNone = 9999999;
  Long shortest = kNone;
  for (const auto& clip : clips) {
    if (clip.isSound != audioOnly) continue;
    shortest = std::min(shortest, toLongClamped(clip.LoopEnd.number() - clip.LoopStart.number()));
  }
  return shortest == kNone ? 0 : shortest;
}

void setAudioFades(TimelineClips& clips) {
  for (auto& clip : clips) {
    if (!clip.hasPicture) continue;
    clip.HasAudioFade =
        clip.RenderAudio && clip.record->AudioFadeInTime() + clip.record->AudioFadeOutTime() > 0;
  }
}

Autofade CalcAutofade(double start, double stop, Single amount) {
  if (amount == 0) amount = 2.0F;
  const double seconds = decimal(amount);
  if (RoundToWhole(stop) - RoundToWhole(start) - RoundToWhole(seconds) < 1) return {};
  const double length = stop - start;
  if (length <= seconds) return {false, 0.1, length - 0.1};
  return {true, seconds, length - seconds};
}

}  // namespace kvo
