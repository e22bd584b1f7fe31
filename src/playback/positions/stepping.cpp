#include "playback/positions/stepping.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

struct StepWords {
  KeyWord on, off;
};
constexpr std::array<StepWords, 4> kStepWords{{{KeyWord::RROn, KeyWord::RROff},
                                               {KeyWord::ROn, KeyWord::ROff},
                                               {KeyWord::FOn, KeyWord::FOff},
                                               {KeyWord::FFOn, KeyWord::FFOff}}};  // in the order of Step

constexpr int kRepeat = 200;         // milliseconds
constexpr Long kSeveral = 5;         // frames
constexpr Long kSteps = 50;          // of a section, forward
constexpr Long kShuttleSteps = 850;  // back
constexpr double kSoundStep = 0.1;   // seconds, where there are no frames

const StepWords& wordsOf(Step which) { return kStepWords[static_cast<std::size_t>(which)]; }

int directionOf(Step which) { return which == Step::Adv1 || which == Step::Adv5 ? 1 : -1; }

}  // namespace

Stepping::Stepping(PositionsCore& core) : core_(core) {
  core_.timers.Timer8.ticks([this] { repeat(); });
}

void Stepping::Adv1(bool quiet) { one(1, quiet); }
void Stepping::Rew1(bool quiet) { one(-1, quiet); }
void Stepping::Adv5(bool quiet) { several(1, quiet); }
void Stepping::Rew5(bool quiet) { several(-1, quiet); }

void Stepping::step(Step which, bool quiet) {
  which == Step::Adv1 || which == Step::Rew1 ? one(directionOf(which), quiet)
                                             : several(directionOf(which), quiet);
}

// True when it is the player that steps, which then stands and counts in frames.
bool Stepping::begins(Step which, bool quiet) {
  const auto* clip = core_.clip();
  const bool track = core_.isTrack() && core_.disc != nullptr;
  if (clip == nullptr || isStreamClip(*clip) || (!track && !core_.canSeek())) return false;
  core_.timers.Timer9.stop();
  if (!quiet) core_.buttons.BuildButton(wordsOf(which).on);
  if (track) {
    core_.disc->step(directionOf(which) * (which == Step::Adv5 || which == Step::Rew5 ? int{kSeveral} : 1));
    core_.buttons.BuildButton(wordsOf(which).off);
    core_.buttons.BuildButton(KeyWord::PlayOn);
    return false;
  }
  core_.player.PlayerSetDisplayMode(DisplayMode::Frames);
  core_.player.PlayerStop();
  return true;
}

void Stepping::ends(Step which, bool quiet) {
  core_.displays.showPosition();
  if (core_.settings.state.KVOIsInEditMode && core_.doors.UpdateKeyFramesIfWeHaveTo)
    core_.doors.UpdateKeyFramesIfWeHaveTo();
  if (!quiet || !core_.state.held.ButtonHeld) core_.buttons.BuildButton(wordsOf(which).off);
}

void Stepping::one(int direction, bool quiet) {
  const auto which = direction > 0 ? Step::Adv1 : Step::Rew1;
  if (!begins(which, quiet)) return;
  auto& player = core_.player;
  const double at = player.PlayerGetCurrentPosition();
  if (!core_.hasPicture()) {
    const InMode seconds(player, DisplayMode::Seconds);
    const double to = player.PlayerGetCurrentPosition() + direction * kSoundStep;
    if (to < player.PlayerGetSelectionEnd()) player.PlayerSetCurrentPosition(std::max(to, 0.0));
  } else if (direction < 0 || at + 1 < player.PlayerGetSelectionEnd()) {
    player.PlayerStep(direction);
  }
  ends(which, quiet);
}

void Stepping::goBy(int pictures) {
  const auto which = pictures > 0 ? Step::Adv1 : Step::Rew1;
  if (pictures == 0 || !begins(which, true)) return;
  auto& player = core_.player;
  const bool counts = core_.hasPicture();
  const InMode unit(player, counts ? DisplayMode::Frames : DisplayMode::Seconds);
  const double step = counts ? 1 : kSoundStep;
  const double at =
      counts ? RoundToWhole(player.PlayerGetCurrentPosition()) : player.PlayerGetCurrentPosition();
  const double last = std::max(player.PlayerGetSelectionEnd() - step, at);
  player.PlayerSetCurrentPosition(std::clamp(at + pictures * step, 0.0, last));
  ends(which, true);
}

Long Stepping::framesOf(int direction, bool quiet) const {
  const auto& clip = *core_.clip();
  const Long section = clip.LoopEndFrames() - clip.LoopStartFrames();
  if (direction > 0 && quiet) return std::max<Long>(section / kSteps, 1);
  if (direction < 0 && core_.state.held.ShuttleStepping) return std::max<Long>(section / kShuttleSteps, 1);
  return kSeveral;
}

void Stepping::several(int direction, bool quiet) {
  const auto which = direction > 0 ? Step::Adv5 : Step::Rew5;
  if (!begins(which, quiet)) return;
  auto& player = core_.player;
  const auto& clip = *core_.clip();
  if (core_.hasPicture()) {
    const double to =
        RoundToWhole(player.PlayerGetCurrentPosition()) + direction * framesOf(direction, quiet);
    const bool inside = direction > 0 ? to <= clip.LoopEndFrames() : to >= clip.LoopStartFrames();
    if (inside) player.PlayerSetCurrentPosition(to);
  } else {  // sound has no frames: a frame counts as a second
    const InMode seconds(player, DisplayMode::Seconds);
    const double to = player.PlayerGetCurrentPosition() + direction * static_cast<double>(kSeveral);
    if (to >= clip.LoopStart().number() && to <= clip.LoopEnd().number()) player.PlayerSetCurrentPosition(to);
  }
  ends(which, quiet);
}

void Stepping::press(Step which) {
  const auto* clip = core_.clip();
  if (clip == nullptr || clip->IsStill()) return;
  repeated_ = false;
  hold(which, kRepeat);
  if (core_.canSeek()) core_.buttons.BuildButton(wordsOf(which).on);
}

void Stepping::release(Step which) {
  const auto* clip = core_.clip();
  if (clip != nullptr && clip->IsStill()) {
    if (which == Step::Adv5) core_.transport.NextMovie();
    if (which == Step::Rew5 && core_.collection.icurMov > 1)
      core_.transport.PreviewMovie(core_.collection.icurMov - 1);
    return;
  }
  if (core_.state.held.ButtonHeld != which) return;
  letGo();
  if (std::exchange(repeated_, false)) return core_.buttons.BuildButton(wordsOf(which).off);
  step(which, false);
}

void Stepping::hold(Step which, int milliseconds) {
  core_.state.held.ButtonHeld = which;
  core_.timers.Timer8.setInterval(milliseconds);
  core_.timers.Timer8.start();
}

void Stepping::letGo() {
  core_.state.held.ButtonHeld.reset();
  core_.timers.Timer8.stop();
}

// Timer8.
void Stepping::repeat() {
  if (!core_.state.held.ButtonHeld) return core_.timers.Timer8.stop();
  repeated_ = true;
  step(*core_.state.held.ButtonHeld, true);
}

// False where there are no chapters.
bool Stepping::toChapter(int direction) {
  const auto markers = core_.player.PlayerGetMarkers();
  if (markers.empty()) return false;
  const InMode seconds(core_.player, DisplayMode::Seconds);
  constexpr double kJustThere = 1;  // seconds behind a chapter's start: back goes to the one ahead of it
  const double at = core_.player.PlayerGetCurrentPosition();
  std::optional<double> to;
  for (const auto& marker : markers) {
    if (direction > 0 && marker.time > at && !to) to = marker.time;
    if (direction < 0 && marker.time < at - kJustThere) to = marker.time;
  }
  if (to) core_.seekSeconds(*to);
  if (to && core_.mode.player.IsPlaying) core_.player.GlobalMediaPlay();
  return true;
}

void Stepping::toSectionEnd(bool start) {
  auto& player = core_.player;
  const auto* clip = core_.clip();
  if (core_.isTrack() && core_.disc != nullptr) return core_.disc->toTrack(start ? -1 : 1);
  if (clip == nullptr || !core_.canSeek()) return;
  if (core_.isDVD() && toChapter(start ? -1 : 1)) return;
  player.PlayerStop();
  if (core_.hasPicture()) {
    core_.seekFrame(start ? clip->LoopStartFrames() : clip->LoopEndFrames());
  } else {
    core_.seekSeconds((start ? clip->LoopStart() : clip->LoopEnd()).number());
  }
  core_.buttons.BuildButton(KeyWord::PauseOn);
}

void Stepping::Lbl_End_Click() { toSectionEnd(false); }
void Stepping::Lbl_Start_Click() { toSectionEnd(true); }

}  // namespace kvo
