#include "program/clip_copies.h"

#include "base/numbers.h"
#include "base/text.h"

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

bool canCopy(const Movie& clip, CopyMode mode, const std::optional<PlayerPlace>& place) {
  if (mode == CopyMode::Exact) return true;
  const auto frames = clip.DurationFrames().wholeNumber();
  if (clip.IsStill() || !frames) return false;
  const Long end = clip.LoopEndFrames();
  if (mode == CopyMode::EqualChunk) return end < *frames;
  if (!place) return false;
  if (mode == CopyMode::Tail) return end < *frames;
  return end <= *frames && place->frame > clip.LoopStartFrames() && place->frame < end;
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
