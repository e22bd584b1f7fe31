// The keys beside the picture, and places of the movie that are shown standing.
#include "base/holding.h"
#include "core/records/media_kinds.h"
#include "editor/compiler/durations.h"
#include "editor/preview/position_texts.h"
#include "editor/preview/preview_engine.h"
#include "editor/tabs/preview.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace kvo {
namespace {

constexpr int kFullPower = 10;
constexpr int kRest = 250;             // milliseconds: longer than the desk needs to see what has changed
constexpr double kWithinFrame = 1e-6;  // of a frame: what a product may lack

int powerOf(const KVO2& settings) {
  const int power = settings.preferences().PreviewCPU;
  return power == 0 ? kFullPower : power;
}

}  // namespace

// The one that is seen there.
std::int64_t PreviewEngine::frameOf(double seconds) const {
  const auto frame = static_cast<std::int64_t>(std::floor(seconds * player_.frameRate() + kWithinFrame));
  return std::clamp<std::int64_t>(frame, 0, std::max<std::int64_t>(player_.frames() - 1, 0));
}

// A preview has few frames a second: the one at the start of a clip may show the clip before.
std::int64_t PreviewEngine::frameInClip(double seconds) const {
  const auto frame = frameOf(seconds);
  const auto& collection = editing_.collection;
  const int number = clipToTake(collection, seconds);
  if (number == 0) return frame;
  const auto& clip = collection.MovieList[number];
  const bool beginsBehind = secondsOf(frame) + kWithinFrame < clip.TimeLineStart().number();
  return beginsBehind && liesAt(clip, secondsOf(frame + 1)) ? std::min(frame + 1, player_.frames() - 1)
                                                            : frame;
}

double PreviewEngine::placeOf(std::int64_t frame) const {
  const bool isPlayheads = state_.kind == PreviewKind::Movie && !state_.PreviewPlaying && standsOn_ == frame;
  return isPlayheads ? standsAt_ : secondsOf(frame);
}

void PreviewEngine::takeTimes() {
  if (movieRuns()) return;
  (isSample() ? movieBar_ : state_.FSB_RenderRange).Max = labelsOf(editing_.editor).FSB_RenderRangeMax;
  std::vector<double> cuts;
  for (int i = 1; i <= editing_.clips().count(); ++i) {
    const auto& clip = editing_.clips()[i];
    const double stop = clip.TimeLineStop().number();
    if (stop > 0 && !isSoundByName(clip.MovieName())) cuts.push_back(stop);
  }
  (isSample() ? movieCuts_ : state_.cuts).assign(std::move(cuts));
}

void PreviewEngine::standAt(double seconds) {
  if (movieRuns() || seeking_) return;
  playhead_ = seconds;
  if (owesMovie_ && !rest_->running()) rest_->start(kRest);
  if (state_.kind == PreviewKind::Movie && !owesMovie_ && (stale_ || seconds != standsAt_)) release();
  auto& bar = isSample() ? movieBar_ : state_.FSB_RenderRange;
  if (!bar.held) bar.Value = seconds;
  if (state_.kind == PreviewKind::None) tellPlace(seconds);
}

void PreviewEngine::showClip() {
  owesMovie_ = false;
  if (state_.kind != PreviewKind::None && !movieRuns()) release();
}

void PreviewEngine::movieIsStale() {
  stale_ = true;
  if (owesMovie_ || (state_.kind == PreviewKind::Movie && !movieRuns())) movieEdited();
}

void PreviewEngine::movieEdited() {
  stale_ = owesMovie_ = true;
  rest_->start(kRest);
}

// Where a transition leads into the clip in hand the movie has the clip before it, too.
bool PreviewEngine::leadsIntoClip(double seconds) const {
  const auto& collection = editing_.collection;
  const int number = collection.icurMov;
  if (number <= 1 || number > collection.MovieList.count()) return false;
  const auto& clip = collection.MovieList[number];
  const double behind = clip.TimeLineStart().number() + secondsFromTenths(clip.TransIn());
  return !isCut(clip.TransType()) && liesAt(clip, seconds) && seconds < behind;
}

// A sample shows the edit already. While the user holds something, the next drawing sees to it.
void PreviewEngine::showAnew() {
  rest_->stop();
  if (!host_.isAtRest() || !host_.mayEdit()) return;
  const bool wanted = std::exchange(owesMovie_, false) && stale_ && state_.failure.empty();
  const bool setsKeyframes = editing_.settings.state.KeyframeMode != 0;
  if (!wanted || movieRuns() || isSample() || setsKeyframes) return;
  const bool isThere = state_.kind == PreviewKind::Movie && standsAt_ == playhead_;
  if (!isThere && leadsIntoClip(playhead_)) {
    showClip();
    return host_.previewChanged();
  }
  const Holding inside(seeking_);
  if (!state_.FSB_RenderRange.held) state_.FSB_RenderRange.Value = playhead_;
  if (!standOnMovie()) return;
  standsAt_ = playhead_;
  standsOn_ = GetPreviewPositionFrame();
  GetCurrPos();
  host_.previewChanged();
}

// Where nothing is shown.
void PreviewEngine::tellPlace(double seconds) {
  state_.total = movieLength();
  if (state_.total <= 0) return TimeCodeOff();
  UpdateRenderPosDisplay(positionText(seconds));
  state_.Lbl_Remain = positionText(state_.total - seconds);
  state_.Lbl_TotDur = positionText(state_.total);
}

void PreviewEngine::PausePreview() {
  if (!state_.PreviewPlaying) return;
  state_.paused = !state_.paused;
  if (state_.paused) {
    player_.pause();
    Timer1_->stop();  // places that are sought meanwhile tell of themselves
  } else {
    sought_.reset();
    player_.play();
    Timer1_->start(kPositionTick);
  }
  host_.previewChanged();
}

void PreviewEngine::playOrPauseMovie() { movieRuns() ? PausePreview() : PrepPreview(); }

void PreviewEngine::haltSample() {
  if (isSample() && !state_.paused) PausePreview();
}

void PreviewEngine::PreviewtransPort(Key key) {
  if (key == Key::PlayOrPause) {
    if (state_.PreviewPlaying) return PausePreview();
    return isSample() ? DirXPlay(0) : PrepPreview();
  }
  const Holding inside(seeking_);
  if (state_.kind == PreviewKind::None && !standOnMovie()) return;
  const bool stays = key != Key::ToStart;  // the end, too, is there to be seen: a rewind would follow
  if (stays && state_.PreviewPlaying && !state_.paused) PausePreview();
  const auto last = player_.frames() - 1;
  const auto now = GetPreviewPositionFrame();
  const auto to = key == Key::ToStart ? 0 : key == Key::ToEnd ? last : now + (key == Key::StepBack ? -1 : 1);
  standOn(std::clamp<std::int64_t>(to, 0, std::max<std::int64_t>(last, 0)));
}

// By the user's choice.
void PreviewEngine::standOn(std::int64_t frame) {
  standsOn_.reset();
  seekTo(frame);
  if (state_.kind != PreviewKind::Movie || state_.PreviewPlaying) return;
  standsAt_ = state_.position;
  host_.movieStands(standsAt_);
}

void PreviewEngine::seekTo(std::int64_t frame) {
  sought_ = frame;
  player_.seek(frame);
  if (!tmrTimer_->running()) tmrTimer_->start(kEndTick);  // it may fail
  GetCurrPos();
}

// The movie as it is now stands in the player; false when there is none to show.
bool PreviewEngine::standOnMovie() {
  const bool isAsItIs = !stale_ || state_.PreviewPlaying;
  if (state_.kind == PreviewKind::Movie && isAsItIs && GetPreviewPlayState() != PlayState::Empty) return true;
  if (!host_.mayEdit() || editing_.clips().empty()) return false;
  if (state_.kind != PreviewKind::None) release();
  auto& change = editing_.settings.state.ObjectChange;
  const auto code = change;  // the change watch has still to hear of it
  auto document = compilePreviewText(editing_, powerOf(editing_.settings));
  change = code;
  fillBar();
  state_.kind = PreviewKind::Movie;
  stale_ = false;
  PreviewIt(std::move(document), state_.FSB_RenderRange.Value, true);
  return state_.failure.empty();
}

void PreviewEngine::showAt(double seconds) {
  const Holding inside(seeking_);
  if (isSample()) release();
  if (!standOnMovie()) return;
  standOn(frameInClip(seconds));
  host_.previewChanged();
}

void PreviewEngine::holdRange(bool held) { state_.FSB_RenderRange.held = held; }

void PreviewEngine::moveRange(double seconds) {
  auto& bar = state_.FSB_RenderRange;
  bar.Value = std::max(seconds, 0.0);
  if (isSample()) return seekTo(frameOf(seconds));
  showAt(seconds);
}

}  // namespace kvo
