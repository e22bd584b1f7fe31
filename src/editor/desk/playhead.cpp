#include "editor/desk/playhead.h"

#include "editor/desk/movie_place.h"
#include "editor/preview/position_texts.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kLongestPicture = 0.2;  // seconds: no picture stands longer
constexpr int kAtOnce = 1;               // milliseconds: behind the act that has loaded the clip
constexpr Integer kLeavesOrder = 97;     // up to here changes leave the clips in their order

}  // namespace

Playhead::Playhead(const Parts& parts) : parts_(parts), rest_(parts.loop.timer([this] { bring(); })) {}

const Movie* Playhead::inHand() const {
  const auto& collection = parts_.editing.collection;
  return collection.icurMov >= 1 && collection.icurMov <= collection.MovieList.count()
             ? &collection.MovieList[collection.icurMov]
             : nullptr;
}

// The movie's place goes with it.
void Playhead::place(const Movie& clip, double inClip) {
  played_ = nullptr;
  inClip_ = inClip;
  inMovie_ = timed_ = placeInMovie(clip, inClip);
}

bool Playhead::goTo(double seconds) {
  const auto& collection = parts_.editing.collection;
  const int number = clipToTake(collection, seconds);
  if (number == 0) return false;
  const bool isAnother = number != collection.icurMov;
  parts_.list.select(number);
  clip_ = inHand();
  isLent_ = false;
  place(*clip_, placeInClip(*clip_, seconds));
  isUntimed_ = false;
  inMovie_ = seconds;  // it may lie beyond the clips, where only music is
  bringSoon();
  return isAnother;
}

void Playhead::reset() {
  rest_->stop();
  take(nullptr);
}

void Playhead::lend(int clipNo) {
  parts_.list.select(clipNo);
  clip_ = inHand();
  isLent_ = true;
}

void Playhead::loaded() {
  loaded_ = inHand();
  bringSoon();
}

void Playhead::step(int pictures) {
  if (parts_.preview.isPlaying()) return;
  follow();
  bring();
  if (clip_ == nullptr || clip_ != inHand()) return;  // it may have gone while it was loaded
  auto to = inClip_;
  if (clip_->IsStill()) {
    const double rate = parts_.editing.settings.preferences().OutPutFrameRate;
    const double from = clip_->LoopStart().number();
    to = std::clamp(inClip_ + (rate > 0 ? pictures / rate : 0), from,
                    std::max(from, clip_->LoopEnd().number()));
  } else {
    parts_.doors.stepPlayer(pictures);
    if (const auto at = parts_.doors.place()) to = at->seconds;
  }
  if (to == inClip_) return;
  place(*clip_, to);
  parts_.preview.showClip();
}

void Playhead::follow() {
  if (parts_.preview.isPlaying()) return;
  const auto* now = inHand();
  if (now != clip_) {
    take(now);
  } else if (isLent_) {
    return;
  } else if (isUntimed_ && !awaitsTiming()) {
    land();
  } else if (movedPlayer()) {
    place(*now, parts_.doors.place()->seconds);
    parts_.preview.showClip();
  } else if (now != nullptr && placeInMovie(*now, inClip_) != timed_) {
    place(*now, inClip_);
  }
  parts_.preview.standAt(inMovie_);
}

// By the direct positioner: nothing else of the editor's moves it but what stands here.
bool Playhead::movedPlayer() const {
  if (!parts_.window.positions.positioner.visible || clip_ == nullptr || clip_ != loaded_ || rest_->running())
    return false;
  const auto at = parts_.doors.place();
  const auto wanted = parts_.doors.pictureAt(inClip_);
  return at && wanted && at->frame != wanted->frame;
}

// It has been chosen, and with that loaded.
void Playhead::take(const Movie* clip) {
  clip_ = loaded_ = clip;
  isLent_ = false;
  if (clip != played_) played_ = nullptr;
  if (clip == nullptr) {
    inMovie_ = inClip_ = timed_ = 0;
    isUntimed_ = false;
    return;
  }
  land();
}

bool Playhead::awaitsTiming() const { return parts_.editing.settings.state.ObjectChange > kLeavesOrder; }

// The playhead stays where the clip lies at it; else it comes to its start. Where that is not known yet it
// waits.
void Playhead::land() {
  isUntimed_ = awaitsTiming();
  const bool lies = !isUntimed_ && liesAt(*clip_, inMovie_);
  inClip_ = lies ? placeInClip(*clip_, inMovie_) : clip_->LoopStart().number();
  timed_ = placeInMovie(*clip_, inClip_);
  if (!lies && !isUntimed_) inMovie_ = timed_;
  rest_->start(kAtOnce);
}

void Playhead::bring() {
  rest_->stop();
  const auto* clip = inHand();
  if (clip == nullptr || clip != clip_ || isLent_ || parts_.preview.isPlaying()) return;
  if (parts_.window.busy()) return bringSoon();
  if (loaded_ != clip) {
    loaded_ = clip;
    parts_.list.PreviewMovie(parts_.editing.collection.icurMov);
    if (inHand() != clip) return;  // the user has chosen another meanwhile
  }
  if (clip->IsStill() || clip == played_) return;
  parts_.doors.standPlayer(inClip_);
  // What is seen there begins a little earlier.
  const auto seen = parts_.doors.place();
  if (seen && std::abs(seen->seconds - inClip_) < kLongestPicture) inClip_ = seen->seconds;
  timed_ = placeInMovie(*clip, inClip_);
}

std::optional<PlayerPlace> Playhead::inPlayer() const {
  const auto* clip = inHand();
  if (clip == nullptr) return std::nullopt;
  if (clip == loaded_) return parts_.doors.pictureAt(inClip_);
  if (clip->IsStill()) return std::nullopt;
  return PlayerPlace{inClip_, pictureAt(*clip, inClip_)};
}

}  // namespace kvo
