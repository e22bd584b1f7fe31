#include "editor/desk/movie_place.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kTenthsOfNormal = 10;

// Seconds of the file in a second of the movie; a still has one place, and no speed stands still.
double paceOf(const Movie& clip) {
  const double speed = clip.IsStill() ? 1 : static_cast<double>(clip.Playspeed()) / kTenthsOfNormal;
  return speed > 0 ? speed : 1;
}

double heldWithin(double value, double from, double to) {
  return std::clamp(value, from, std::max(from, to));
}

}  // namespace

double placeInClip(const Movie& clip, double seconds) {
  const double from = clip.LoopStart().number();
  return heldWithin(from + (seconds - clip.TimeLineStart().number()) * paceOf(clip), from,
                    clip.LoopEnd().number());
}

double placeInMovie(const Movie& clip, double seconds) {
  const double start = clip.TimeLineStart().number();
  return heldWithin(start + (seconds - clip.LoopStart().number()) / paceOf(clip), start,
                    clip.TimeLineStop().number());
}

Long pictureAt(const Movie& clip, double seconds) {
  const double length = clip.DurationTime().number();
  const double rate = length > 0 ? clip.DurationFrames().number() / length : 0;
  return static_cast<Long>(std::lround(seconds * rate));
}

}  // namespace kvo
