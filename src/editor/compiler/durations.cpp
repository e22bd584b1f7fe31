#include "editor/compiler/durations.h"

#include "base/text.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/keep_records.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kLongestTransition = 25.0;  // seconds

// The timeline length, or the length of the whole source where no section is marked. A still that has neither
// will last as long as stills do.
double lengthOrDuration(const Compilation& c, int clipNo) {
  const auto& clip = c.clips()[clipNo];
  if (const double length = timelineLength(clip); length > 0) return length;
  const double duration = clip.DurationTime().number();
  const bool usesDefault = clip.IsStill() && duration <= 0;
  return (usesDefault ? ToNumber(ShortText(c.settings.state.DefaultStillDuration)) : duration) /
         speedOf(clip);
}

}  // namespace

double speedOf(const Movie& clip) { return secondsFromTenths(clip.Playspeed()); }

double secondsFromTenths(Single tenths) { return ToNumber(ShortText(tenths)) / 10; }

double timelineLength(const Movie& clip) {
  return (clip.LoopEnd().number() - clip.LoopStart().number()) / speedOf(clip);
}

std::string startText(double seconds) { return ShortText(ToNumber(fixedText(seconds))); }

std::string fixedText(double seconds) { return FormatMask(seconds, "0.0000"); }

std::string secondsText(const Value& seconds) {
  return seconds.wholeNumber() ? seconds.text() : ShortText(seconds.number());
}

std::string CalcMaxTransitionDuration(const Compilation& c, int clipNo) {
  const double a = lengthOrDuration(c, clipNo);
  const double b = clipNo == 1 ? a : lengthOrDuration(c, clipNo - 1);
  return FormatMask(std::min({a, b, kLongestTransition}), "0.0");
}

void SortTransitionTimes(const Compilation& c, int clipNo) {
  auto& clip = c.clips()[clipNo];
  auto& slider = c.editor.controls.Sld_In;
  if (clip.TransType().empty()) clip.TransType("CUT");
  const auto change = c.settings.state.ObjectChange;
  if (clip.LoopEnd().text() == "N/A") clip.LoopEnd(Value(ShortText(c.settings.state.DefaultStillDuration)));
  c.settings.state.ObjectChange = change;
  giveStillLength(c, clip);
  if (clipNo != 1) {
    const double most = ToNumber(CalcMaxTransitionDuration(c, clipNo)) * 10;
    slider.Max = most >= 1 ? toLongClamped(most) : 1;
  } else {
    const double half = timelineLength(clip) * 10 / 2;
    if (half != slider.Max) slider.Max = half >= 1 ? toLongClamped(half) : 1;
  }
  if (clip.TransIn() > static_cast<Single>(slider.Max)) {
    clip.TransIn(static_cast<Single>(ToNumber(FormatMask(slider.Max, "0.0"))));
  }
}

Single CalcMinimumDur(const Compilation& c, int clipA, int clipB) {
  const auto m =
      static_cast<Single>(std::min(timelineLength(c.clips()[clipA]), timelineLength(c.clips()[clipB])));
  if (m < 0.25F) return m;
  if (m < 0.5F) return 0.25F;
  if (m < 1.0F) return 0.5F;
  if (m < 1.5F) return 0.75F;
  if (m < 2.0F) return 1.0F;
  return 2.0F;
}

Long FindShortestCut(const Compilation& c, bool audioOnly) {
  constexpr Long kNone = 9999999;
  Long shortest = kNone;
  for (int i = 1; i <= c.clips().count(); ++i) {
    const auto& clip = c.clips()[i];
    if (isSound(c, clip) != audioOnly) continue;
    shortest = std::min(shortest, toLongClamped(clip.LoopEnd().number() - clip.LoopStart().number()));
  }
  return shortest == kNone ? 0 : shortest;
}

void UpdateTrackFade(const Compilation& c, bool audioPass) {
  if (!audioPass) {
    const auto most = static_cast<Single>(FindShortestCut(c, false)) / 2 * 100 - 0.5F;
    if (c.settings.preferences().VideoTrackFadeAmt > most) c.settings.change().VideoTrackFadeAmt = most;
    return;
  }
  for (int i = 1; i <= c.clips().count(); ++i) {
    auto& clip = c.clips()[i];
    const auto facts = c.streams.facts(clipFile(clip));
    if (!facts || !facts->hasVideo) continue;
    clip.HasAudioFade(clip.RenderAudio() && clip.AudioFadeInTime() + clip.AudioFadeOutTime() > 0);
  }
}

double attributeNumber(std::string_view text) {
  return ToNumber(replaced(replaced(replaced(text, "start=", ""), "stop=", ""), "\"", ""));
}

Autofade CalcAutofade(std::string_view startText, std::string_view stopText, Single amount) {
  if (amount == 0) amount = 2.0F;
  const double seconds = ToNumber(ShortText(amount));
  const double start = attributeNumber(startText);
  const double stop = attributeNumber(stopText);
  if (RoundToWhole(stop) - RoundToWhole(start) - RoundToWhole(seconds) < 1) return {};
  const double d = stop - start;
  if (d <= seconds) return {false, "0.1", fixedText(d - 0.1)};
  return {true, ShortText(amount), fixedText(d - seconds)};
}

void SetAutoTrim(const Compilation& c) {
  const auto& controls = c.editor.controls;
  c.settings.adjust().AutoTrimAudio = controls.Chk_AutoTrimEnabled && controls.Chk_AutoTrim;
}

}  // namespace kvo
