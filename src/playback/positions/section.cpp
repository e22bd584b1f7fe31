#include "playback/positions/section.h"

namespace kvo {
namespace {

// A corrected mark is found again at each load: the file need not be saved for it.
template <class Change>
void withoutMark(Movie& clip, const Change& change) {
  const bool dirty = clip.IsDirty();
  change();
  clip.IsDirty(dirty);
}

}  // namespace

Movie* clipInHand(Collection& collection) {
  const int number = collection.icurMov;
  return number >= 1 && number <= collection.MovieList.count() ? &collection.MovieList[number] : nullptr;
}

const Movie* clipInHand(const Collection& collection) {
  const int number = collection.icurMov;
  return number >= 1 && number <= collection.MovieList.count() ? &collection.MovieList[number] : nullptr;
}

double framesPerSecond(const Movie& clip) {
  const double frames = clip.DurationFrames().wholeNumber().value_or(0);
  const double seconds = clip.DurationTime().wholeNumber().value_or(0);
  return frames > 0 && seconds > 0 ? frames / seconds : 0;
}

SeenFrame seenFrame(Player& player) {
  const InMode mode(player, DisplayMode::Seconds);
  const double seconds = player.PlayerGetCurrentPosition();
  player.PlayerSetDisplayMode(DisplayMode::Frames);
  return {seconds, toLongClamped(player.PlayerGetCurrentPosition())};
}

void Section::correct(Movie& clip, double duration) {
  const double end = clip.LoopEnd().number();
  if (end != 0 && end <= duration) return player_.PlayerSetSelectionEnd(end);
  withoutMark(clip, [&] { clip.LoopEnd(Value(duration)); });
  player_.PlayerSetSelectionEnd(duration);
}

void Section::SectionToPlay(bool keepPosition) {
  auto* clip = clipInHand(collection_);
  if (clip == nullptr || player_.PlayerIsEmpty()) return;
  const InMode seconds(player_, DisplayMode::Seconds);
  const double duration = player_.PlayerGetDuration();
  if (duration <= 0) return;
  correct(*clip, duration);
  if (player_.PlayerGetSelectionEnd() != clip->LoopEnd().number()) {  // the engine has refused it
    player_.PlayerSetSelectionStart(clip->LoopStart().number());
    if (clip->LoopEnd().number() <= clip->LoopStart().number())
      withoutMark(*clip, [&] { clip->LoopEnd(Value(duration)); });
    player_.PlayerSetSelectionEnd(clip->LoopEnd().number());
  }
  if (clip->LoopStart().number() < 0) withoutMark(*clip, [&] { clip->LoopStart(Value(0)); });
  const double start = clip->LoopStart().number();
  const double end = clip->LoopEnd().number();
  if (player_.canSeek()) {
    player_.PlayerSetSelectionStart(start);
    if (!keepPosition) player_.PlayerSetCurrentPosition(start);
    player_.PlayerSetSelectionEnd(end);
  } else if (!keepPosition && start != 0) {
    player_.PlayerSetCurrentPosition(player_.PlayerGetSelectionStart());
  }
}

}  // namespace kvo
