#include "editor/preview/position_texts.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/translated.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr std::int64_t kParts = 10000;  // of a second

int clipThere(const Collection& collection, double seconds, bool sound) {
  int last = 0;
  for (int number = 1; number <= collection.MovieList.count(); ++number) {
    const auto& clip = collection.MovieList[number];
    if (isSoundByName(clip.MovieName()) != sound) continue;
    const double stop = clip.TimeLineStop().number();
    if (stop <= 0) continue;
    last = number;
    if (stop > seconds) break;
  }
  return last;
}

}  // namespace

std::string positionText(double seconds) {
  const auto parts = std::llround(std::max(seconds, 0.0) * static_cast<double>(kParts));
  const auto part = [](std::int64_t value, const char* mask) {
    return FormatMask(static_cast<double>(value), mask);
  };
  return part(parts / kParts / 60, "00") + ":" + part(parts / kParts % 60, "00") + "." +
         part(parts % kParts, "0000");
}

int clipAt(const Collection& collection, double seconds) {
  const int seen = clipThere(collection, seconds, false);
  return seen != 0 ? seen : clipThere(collection, seconds, true);
}

bool liesAt(const Movie& clip, double seconds) {
  return clip.TimeLineStart().number() <= seconds && seconds < clip.TimeLineStop().number();
}

int clipToTake(const Collection& collection, double seconds) {
  const int number = collection.icurMov;
  const bool isClip = number >= 1 && number <= collection.MovieList.count();
  return isClip && liesAt(collection.MovieList[number], seconds) ? number : clipAt(collection, seconds);
}

std::string previewTitle(const PreviewState& state) {
  if (!state.failure.empty()) return state.failure;
  return state.isEmpty() ? translated("Nothing to Preview") : replaced(state.title, " -->  ", " \u2192 ");
}

std::string titleOf(const Movie& clip) {
  const auto name = trimmed(clip.AltName());
  return name.empty() ? clip.MovieName() : std::string(name);
}

}  // namespace kvo
