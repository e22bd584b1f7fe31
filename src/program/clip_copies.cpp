#include "program/clip_copies.h"

#include "base/numbers.h"
#include "base/text.h"
#include "core/telling/translated.h"

namespace kvo {
namespace {

constexpr double kSplitGap = 0.01;  // seconds

// A transition into it fits into what is played.
void shortenTransition(Movie& copy) {
  if (copy.IsStill()) return;
  const double played =
      (copy.LoopEnd().number() - copy.LoopStart().number()) / (static_cast<double>(copy.Playspeed()) / 10);
  if (static_cast<double>(copy.TransIn()) / 10 > played) copy.TransIn(static_cast<Single>(played / 2 * 10));
}

// Seconds first: setting them derives frames, and these are known better.
void takeSection(Movie& copy, const Movie& clip, CopyMode mode) {
  const bool isTail = mode == CopyMode::Tail;
  const double end = clip.LoopEnd().number();
  copy.LoopStart(clip.LoopEnd());
  copy.LoopStartFrames(clip.LoopEndFrames() + 1);
  copy.LoopEnd(isTail ? clip.DurationTime() : Value(end + end - clip.LoopStart().number()));
  if (!clip.IsVFWCompat()) return;
  const double last =
      isTail ? clip.DurationFrames().number()
             : static_cast<double>(copy.LoopStartFrames()) + (clip.LoopEndFrames() - clip.LoopStartFrames());
  copy.LoopEndFrames(toLongClamped(last));
}

}  // namespace

std::string whyNoCopy(const Movie& clip, CopyMode mode, const std::optional<PlayerPlace>& place) {
  if (mode == CopyMode::Exact) return {};
  if (clip.IsStill())
    return translated(mode == CopyMode::Split ? "A still cannot be split" : "A still has no marks");
  const auto frames = clip.DurationFrames().wholeNumber();
  if (!frames) return translated("It is not known how long this clip is");
  if (!place && mode != CopyMode::EqualChunk) return translated("This clip is not in the player");
  const Long end = clip.LoopEndFrames();
  if (mode != CopyMode::Split) return end < *frames ? "" : translated("Nothing lies behind the Mark-Out");
  const bool isInside = end <= *frames && place->frame > clip.LoopStartFrames() && place->frame < end;
  return isInside ? "" : translated("Go to a place between the marks first");
}

Movie copyOf(const Movie& clip, CopyMode mode, const PlayerPlace& place) {
  Movie copy = clip;
  if (mode == CopyMode::Split) {
    copy.LoopStart(Value(place.seconds));
    copy.LoopStartFrames(place.frame);
  } else if (mode != CopyMode::Exact) {
    takeSection(copy, clip, mode);
  }
  shortenTransition(copy);
  copy.CutIndex(toInteger(clip.CutIndex() + 1).value_or(clip.CutIndex()));
  copy.AltName(clip.MovieName() + " - " + FormatMask(copy.CutIndex(), "000"));
  return copy;
}

void endAhead(Movie& clip, const PlayerPlace& place) {
  clip.LoopEnd(Value(place.seconds - kSplitGap));
  clip.LoopEndFrames(place.frame - 1);
}

}  // namespace kvo
