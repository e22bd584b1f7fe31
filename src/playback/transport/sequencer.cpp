#include "playback/transport/sequencer.h"

#include "base/holding.h"
#include "playback/in_seconds.h"

namespace kvo {
namespace {

constexpr int kPollInterval = 200;  // milliseconds
constexpr int kIntervalWithoutDelay = 500;
constexpr int kMillisecondsASecond = 1000;

}  // namespace

EndedClip Sequencer::endedClip() const {
  EndedClip ended{.number = core_.icurMov(),
                  .count = core_.collection.MovieList.count(),
                  .order = core_.order(),
                  .memory = core_.state.memory,
                  .InterClipDelay = core_.settings.state.InterClipDelay,
                  .KVOIsInEditMode = core_.editing(),
                  .markDragged = core_.host.markDragged(),
                  .waveSpikesShown = core_.settings.state.WavSpikesOn};
  const InMode seconds(core_.player, DisplayMode::Seconds);
  ended.duration = core_.player.PlayerGetDuration();
  if (const auto* clip = core_.clip()) {
    ended.sectionSeconds = clip->LoopEnd().number() - clip->LoopStart().number();
    ended.sectionFrames = clip->LoopEndFrames() - clip->LoopStartFrames();
    ended.wavInControl = kindOfFile(*clip) == "WAV" && !core_.player.UsingCorona();
  }
  return ended;
}

void Sequencer::EndOfStream() {
  endWaits_ = core_.host.busy();
  if (endWaits_ || core_.collection.MovieList.empty()) return;
  apply(whatFollows(endedClip()));
}

void Sequencer::apply(const WhatFollows& follows) {
  auto& player = core_.player;
  if (follows.autoRewindOff) player.PlayerSetAutoRewind(false);
  if (follows.stop) player.PlayerStop();
  if (follows.delayed) DelayedTimerStart();
  if (follows.select > 0) {
    core_.host.select(follows.select);
    core_.mode.player.clipWaits = true;
  }
  if (follows.seek == EndSeek::ToStart) player.PlayerSetCurrentPosition(0);
  if (follows.seek == EndSeek::ToDuration) player.PlayerSetCurrentPosition(player.PlayerGetDuration());
  for (const auto word : follows.buttons) core_.button(word);
  if (follows.command != SequencerCommand::None) core_.state.command = follows.command;
  core_.state.memory = follows.memory;
  if (follows.over) core_.mode.player.IsPlaying = false;
  // Where nothing follows the player stands at its end, whichever engine it is on.
  if (waits() || core_.running()) return;
  core_.timers.Timer5.stop();
  if (core_.mode.player.IsPlaying) core_.button(KeyWord::PauseOn);
}

void Sequencer::DelayedTimerStart() {
  const int delay = core_.settings.state.InterClipDelay;
  if (delay > 0) core_.button(KeyWord::PauseOn);
  auto& timer = core_.timers.Timer6;
  timer.stop();
  timer.setInterval(delay > 0 ? delay * kMillisecondsASecond : kIntervalWithoutDelay);
  timer.start();
}

void Sequencer::tick() {
  auto& timer = core_.timers.Timer6;
  if (timer.interval() != kPollInterval) timer.setInterval(kPollInterval);
  if (core_.host.busy() || carries_) return;
  if (endWaits_) EndOfStream();
  if (!waits()) return;
  core_.loop.yield();
  if (!core_.host.busy()) carryOut();
}

void Sequencer::carryOutNow() {
  if (waits() && !core_.host.busy()) carryOut();
}

void Sequencer::forget() {
  core_.state.command = SequencerCommand::None;
  endWaits_ = false;
}

void Sequencer::carryOut() {
  if (carries_) return;
  const Holding carries(carries_);
  switch (std::exchange(core_.state.command, SequencerCommand::None)) {
    case SequencerCommand::Curr:
      return Curr(core_.icurMov());
    case SequencerCommand::Redo:
      return Redo();
    case SequencerCommand::Next:
      return Next();
    case SequencerCommand::Kill:
      return Kill();
    case SequencerCommand::None:
      return;
  }
}

// Unless the user has stopped it as it was loaded.
void Sequencer::playOn() {
  if (core_.player.PlayerIsEmpty() || core_.state.stopRequested) return;
  core_.player.GlobalMediaPlay();
  core_.mode.player.IsPlaying = true;
  core_.button(KeyWord::PlayOn);
}

void Sequencer::Curr(int number) {
  if (!preview_(number)) return;
  core_.display.ShowSliderStuff();
  playOn();
}

void Sequencer::Redo() {
  const auto order = core_.order();
  if (order.mnu_Looping) {
    core_.toLoopStart();
    core_.player.GlobalMediaPlay();
    return;
  }
  if (order.rewinds()) {
    core_.toLoopStart();
  } else {
    core_.player.PlayerSetPlayCount(1);
    core_.player.PlayerSetAutoRewind(false);
    core_.player.PlayerPause();
  }
  core_.button(KeyWord::PauseOn);
}

void Sequencer::Next() {
  const auto order = core_.order();
  const int number = clipOfNext(core_.icurMov(), core_.collection.MovieList.count(), order);
  if (order.mnu_Looping) {
    preview_(number);
    return;
  }
  if (order.rewinds()) {
    core_.player.PlayerSetPlayCount(1);
    core_.player.PlayerSetAutoRewind(false);
    core_.player.PlayerStop();
    core_.player.PlayerPause();
    if (preview_(number)) core_.display.ShowSliderStuff();
    return;
  }
  // A collection that begins again plays, also behind a pause between the clips.
  if (order.mnu_LoopCollectionsOnPlayback) return Curr(number);
  if (!preview_(number)) return;
  const auto* clip = core_.clip();
  if (clip != nullptr && clip->IsStream() && core_.player.canSeek()) {
    core_.player.PlayerStop();
    core_.toLoopStart();
    core_.button(KeyWord::PauseOn);
  }
  core_.display.ShowSliderStuff();
}

void Sequencer::Kill() {
  if (core_.mode.ticks.mnu_ShowSlider) core_.display.ShowSliderStuff();
  core_.button(KeyWord::PlayOn);
  core_.mode.player.IsPlaying = core_.running();
  if (!core_.player.PlayerIsEmpty() && !core_.mode.IsMiniMode && core_.settings.state.AllDetOff)
    core_.display.PositionAndSize();
}

}  // namespace kvo
