#include "playback/positions/marks.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace kvo {
namespace {

constexpr double kLeastFrame = 0.01;  // seconds, of a clip whose frames are not known

void markIn(Movie& clip, const SeenFrame& place) {
  clip.LoopStart(Value(place.seconds));
  clip.LoopStartFrames(place.frame);
}

void markOut(Movie& clip, const SeenFrame& place) {
  clip.LoopEnd(Value(place.seconds));
  clip.LoopEndFrames(place.frame);
}

// The end of the clip, as its record has it.
void markEnd(Movie& clip) {
  clip.LoopEnd(clip.DurationTime());
  clip.LoopEndFrames(toLongClamped(clip.DurationFrames().number()));
}

void markWhole(Movie& clip) {
  markIn(clip, {});
  markEnd(clip);
}

auto marksOf(const Movie& clip) {
  return std::tuple(clip.LoopStart().number(), clip.LoopStartFrames(), clip.LoopEnd().number(),
                    clip.LoopEndFrames());
}

}  // namespace

Marks::Marks(PositionsCore& core) : core_(core) {
  core_.timers.Timer3.ticks([this] { applyDrag(); });
  core_.timers.Timer5.ticks([this] { follow(); });
}

void Marks::tell(std::string_view text, std::string_view title) {
  core_.boxes.show({std::string(title), std::string(text), BoxButtons::Ok, BoxIcon::Warning});
}

bool Marks::refusedByKeyframes(bool in) {
  if (core_.settings.state.KeyframeMode == 0) return false;
  tell(in ? "Cannot re-set Mark-In point while setting Keyframes"
          : "Cannot re-set Mark-Out point while setting Keyframes",
       "KVO5 - Keyframe Warning");
  return true;
}

bool Marks::refusedByDisc() {
  if (!core_.isDVD()) return false;
  tell("Cannot set Editing Markers in DVD Clips.", "KVO5 - DVD Edit Warning");
  return true;
}

double Marks::oneFrame() const {
  const double rate = framesPerSecond(*core_.clip());
  return rate > 0 ? 1 / rate : kLeastFrame;
}

bool Marks::press(SliderHandleId handle) {
  auto& held = core_.state.held;
  const InMode seconds(core_.player, DisplayMode::Seconds);
  if (core_.clip() == nullptr || core_.slider.duration() <= 0) return false;
  moved_ = false;
  if (handle == SliderHandleId::ImageBlob) {
    held.BlobDragging = true;
    core_.slider.hold(core_.sliderState.position);
  } else {
    const bool in = handle == SliderHandleId::Img_MarkIn;
    if (refusedByKeyframes(in) || refusedByDisc()) return false;
    resumes_ = core_.mode.player.IsPlaying;
    (in ? held.MarkInDragging : held.MarkOutDragging) = true;
    core_.player.PlayerPause();
  }
  core_.timers.Timer5.stop();
  core_.timers.Timer3.start();
  return true;
}

void Marks::drag(SliderHandleId handle, double part) {
  const auto& held = core_.state.held;
  if (handle == SliderHandleId::ImageBlob && held.BlobDragging) core_.slider.hold(part);
  if (handle == SliderHandleId::Img_MarkIn && held.MarkInDragging) core_.slider.SetposAsPct(part * 100, "IN");
  if (handle == SliderHandleId::Img_MarkOut && held.MarkOutDragging)
    core_.slider.SetposAsPct(part * 100, "OUT");
  moved_ = true;
}

// Timer3. What comes over the net is not sought for at each move.
void Marks::applyDrag() {
  const auto& held = core_.state.held;
  const auto kind = core_.kind();
  const auto* clip = core_.clip();
  if (!std::exchange(moved_, false) || clip == nullptr || kind == "ASX" || kind == "ASF" ||
      isStreamClip(*clip))
    return;
  auto& player = core_.player;
  const InMode seconds(player, DisplayMode::Seconds);
  if (held.BlobDragging) player.PlayerSetCurrentPosition(core_.slider.PosPctToSecs());
  if (held.MarkInDragging) {
    const double at = core_.slider.PosPctToSecsMark(0);
    player.PlayerSetSelectionStart(at);
    player.PlayerSetCurrentPosition(at);
  }
  if (held.MarkOutDragging) {
    const double at = core_.slider.PosPctToSecsMark(1);
    player.PlayerSetCurrentPosition(at);
    selectionEnd(at);
  }
  core_.displays.UpdateDigital();
  core_.displays.showLabel();
}

// Timer5.
void Marks::follow() {
  if (core_.player.PlayerIsEmpty()) return;
  core_.slider.SetposAsPct(core_.slider.TimeAsPct(), "");
  core_.displays.UpdateDigital();
}

// The player may write the record's mark along with its own, which is nothing yet that can be undone.
void Marks::selectionEnd(double seconds) {
  auto& clip = *core_.clip();
  const auto end = clip.LoopEnd();
  const auto endFrames = clip.LoopEndFrames();
  const bool dirty = clip.IsDirty();
  core_.player.PlayerSetSelectionEnd(seconds);
  if (clip.LoopEnd() != end) {
    clip.LoopEnd(end);
    clip.LoopEndFrames(endFrames);
    core_.player.ResetCoronaPlayerEnd(seconds);
  }
  clip.IsDirty(dirty);
}

void Marks::endDrag() { core_.state.held.MarkInDragging = core_.state.held.MarkOutDragging = false; }

void Marks::release(SliderHandleId handle, MouseKey key) {
  auto& held = core_.state.held;
  const bool position = handle == SliderHandleId::ImageBlob;
  const bool in = handle == SliderHandleId::Img_MarkIn;
  if (!(position ? held.BlobDragging : in ? held.MarkInDragging : held.MarkOutDragging)) return;
  auto& timers = core_.timers;
  const bool sequenced = timers.Timer6.enabled();
  for (auto* timer : {&timers.Timer3, &timers.Timer5, &timers.Timer6}) timer->stop();
  held.BlobDragging = held.MarkInDragging = held.MarkOutDragging = false;
  if (core_.clip() != nullptr) {
    const InMode seconds(core_.player, DisplayMode::Seconds);
    if (position) {
      releasePosition();
    } else if (key == MouseKey::Right) {
      resetMark(in);
    } else {
      in ? keepMarkIn() : keepMarkOut();
      resume();
    }
  }
  timers.Timer5.start();
  if (sequenced) timers.Timer6.start();
}

void Marks::put(SliderHandleId handle, double part) {
  if (!press(handle)) return;
  drag(handle, part);
  release(handle, MouseKey::Left);
}

void Marks::reset(SliderHandleId handle) {
  if (press(handle)) release(handle, MouseKey::Right);
}

void Marks::releasePosition() {
  core_.player.PlayerSetCurrentPosition(core_.slider.PosPctToSecs());
  core_.displays.UpdateDigital();
  core_.displays.showLabel();
  if (core_.mode.player.IsPlaying) core_.player.GlobalMediaPlay();
}

// Changes the record so that it can be undone, and tells the player of what it then holds. Marks that stand
// so already are nothing to undo.
bool Marks::edit(bool in, const std::function<void(Movie&)>& change) {
  auto wanted = *core_.clip();
  change(wanted);
  const bool done =
      marksOf(wanted) == marksOf(*core_.clip()) ||
      core_.host.edit(in ? "Mark-In of" : "Mark-Out of", kMarksChangeCode, change, std::string_view());
  takeMarks();
  return done;
}

// What the player shows of a place that it has been sent to, unless it stayed away from it.
SeenFrame Marks::seenNear(double wanted) const {
  const auto seen = seenFrame(core_.player);
  const auto meant = core_.player.pictureAt(wanted);
  return std::abs(seen.frame - meant.frame) <= 1 ? seen : meant;
}

void Marks::keepMarkIn() {
  auto& player = core_.player;
  const auto& clip = *core_.clip();
  const double end = clip.LoopEnd().number() > 0 ? clip.LoopEnd().number() : core_.slider.duration();
  const double wanted = std::clamp(core_.slider.PosPctToSecsMark(0), 0.0, std::max(end - oneFrame(), 0.0));
  player.PlayerSetSelectionStart(wanted);
  player.PlayerSetCurrentPosition(wanted);
  const auto seen = seenNear(wanted);
  if (!core_.isTrack() && clip.LoopStart().number() != seen.seconds) {
    edit(true, [&](Movie& changed) { markIn(changed, seen); });
  }
  afterMark();
}

void Marks::keepMarkOut() {
  auto& player = core_.player;
  const auto& clip = *core_.clip();
  const double length = core_.slider.duration();
  const double wanted = std::clamp(core_.slider.PosPctToSecsMark(1),
                                   std::min(clip.LoopStart().number() + oneFrame(), length), length);
  player.PlayerSetCurrentPosition(wanted);
  selectionEnd(wanted);
  const bool whole = wanted >= length;
  const auto seen = whole ? SeenFrame{wanted} : seenNear(wanted);
  if (!core_.isTrack() && clip.LoopEnd().number() != seen.seconds) {
    edit(false, [&](Movie& changed) { whole ? markEnd(changed) : markOut(changed, seen); });
  }
  // What goes on playing from its end would be at its end.
  if (resumes_ && player.canSeek()) player.PlayerSetCurrentPosition(clip.LoopStart().number());
  afterMark();
}

void Marks::resume() {
  if (!resumes_) return;
  core_.buttons.BuildButton(KeyWord::PlayOn);
  core_.player.GlobalMediaPlay();
}

// The right key.
void Marks::resetMark(bool in) {
  edit(in, [in](Movie& changed) { in ? markIn(changed, {}) : markEnd(changed); });
  core_.section.SectionToPlay(false);
  core_.buttons.BuildButton(KeyWord::PauseOn);
  afterMark();
}

void Marks::afterMark() {
  showMarks();
  core_.displays.showPosition();
  core_.host.Displaymovieinfo();
}

void Marks::showMarks() {
  const auto* clip = core_.clip();
  const InMode seconds(core_.player, DisplayMode::Seconds);
  if (clip == nullptr || core_.slider.duration() <= 0) return;
  const double end = clip->LoopEnd().number();
  core_.slider.SetposAsPct(core_.slider.TimeAsPctUnfmt(clip->LoopStart().number()), "IN");
  core_.slider.SetposAsPct(end > 0 ? core_.slider.TimeAsPctUnfmt(end) : 100, "OUT");
}

void Marks::takeMarks() {
  core_.section.SectionToPlay(true);
  showMarks();
}

void Marks::resetBoth() { edit(false, markWhole); }

void Marks::ResetMarks() {
  if (core_.clip() == nullptr || core_.clip()->DurationTime().number() <= 0) return;
  if (refusedByKeyframes(true)) return;
  core_.host.edit("marks of", kMarksChangeCode, markWhole, {});
  core_.section.SectionToPlay(false);
  core_.buttons.BuildButton(KeyWord::PauseOn);
  afterMark();
}

void Marks::SetMarkIn() {
  auto* clip = core_.clip();
  auto& player = core_.player;
  const InMode seconds(player, DisplayMode::Seconds);
  const double length = core_.slider.duration();
  if (clip == nullptr || length <= 0 || refusedByKeyframes(true) || refusedByDisc()) return;
  if (!player.PlayerIsEmpty()) {
    player.PlayerStop();
    core_.buttons.BuildButton(KeyWord::PauseOn);
  }
  const auto seen = seenFrame(player);
  const double end = clip->LoopEnd().number();
  if (end > 0 && end <= seen.seconds) {
    tell("End point must be after Start point.", "KVO - MarkOut before start");
    edit(true, markWhole);
  } else {
    edit(true, [&](Movie& changed) { markIn(changed, seen); });
  }
  core_.host.ShowSliderStuff();
  afterMark();
}

void Marks::SetMarkOut() {
  auto* clip = core_.clip();
  auto& player = core_.player;
  const InMode mode(player, DisplayMode::Seconds);
  const double length = core_.slider.duration();
  if (clip == nullptr || length <= 0 || refusedByKeyframes(false)) return;
  if (refusedByDisc()) {
    resetBoth();
    return afterMark();
  }
  player.PlayerPause();
  core_.buttons.BuildButton(KeyWord::PauseOn);
  auto seen = seenFrame(player);
  if (seen.seconds == 0) seen = {clip->LoopEnd().number(), clip->LoopEndFrames()};
  selectionEnd(seen.seconds);
  const bool crossed = clip->LoopStartFrames() >= seen.frame && seen.frame > 0;
  if (crossed || clip->LoopStart().number() >= seen.seconds) {
    tell("Clip End must be after Start point Error - Buffering while positioning error.",
         "KVO5 - End after Start");
    resetBoth();
  } else if (seen.seconds > clip->DurationTime().number() + oneFrame()) {
    tell("Please re-load the clip - Buffering while positioning error.", "KVO5 - Start before End");
    resetBoth();
  } else {
    const bool whole = seen.seconds >= clip->DurationTime().number();
    edit(false, [&](Movie& changed) { whole ? markEnd(changed) : markOut(changed, seen); });
  }
  core_.host.ShowSliderStuff();
  afterMark();
}

}  // namespace kvo
