// The commands, the ends and the stills.
#include "playback/transport/transport.h"

#include "base/holding.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 4> kRateKinds{"AVI", "MPG", "MPE", "PEG"};

}  // namespace

Transport::Transport(const TransportParts& parts)
    : core_(parts),
      sequencer_(core_, [this](int number) { return follow(number); }),
      stream_(core_,
              [this](int number) {
                settle();
                played(number);
              }),
      monitor_(core_, sequencer_, stream_, [this](int number) { return follow(number); }),
      duration_(parts.loop.timer([this] { WaitForValidDuration(); })) {
  core_.timers.Timer1.ticks([this] { monitor_.tick(); });
  core_.timers.Timer4.ticks([this] { tellAnimation(); });
  core_.timers.Timer6.ticks([this] { sequencer_.tick(); });
  core_.timers.Timer7.ticks([this] { stepBack(); });
  core_.timers.Timer9.ticks([this] { tellWave(); });
  core_.timers.StillTimer.ticks([this] { stillTick(); });
  core_.player.whenEndOfStream([this] { ended(false); });
  core_.player.whenGraphStops([this] { ended(true); });
  core_.player.whenDriven([this] {
    ++acts_;
    if (!stepsBack_) core_.timers.Timer7.stop();
  });
}

// The engine's event is left before anything is loaded into the same engine.
void Transport::ended(bool graph) {
  if (core_.settings.user.PlayWithoutGaps) {
    core_.loop.post([this, graph, acts = acts_, lives = std::weak_ptr(lives_)] {
      if (lives.expired() || acts != acts_) return;
      if (graph) {
        if (core_.player.coronaAtStopTime()) monitor_.graphAtEnd();
      } else if (!core_.host.startUpVideoEnded()) {
        sequencer_.EndOfStream();
      }
      if (core_.settings.state.InterClipDelay <= 0) sequencer_.carryOutNow();
    });
    return;
  }
  if (graph) return;  // the monitor sees it
  if (!core_.host.startUpVideoEnded()) sequencer_.EndOfStream();
}

// Timer4 and Timer9, which tick for nobody who is not there.
void Transport::tellAnimation() {
  auto* animation = core_.guests.animation;
  animation != nullptr ? animation->watch() : core_.timers.Timer4.stop();
}

void Transport::tellWave() {
  auto* wave = core_.guests.wave;
  wave != nullptr&& core_.settings.state.WavSpikesOn ? wave->ExecWavSpikes() : core_.timers.Timer9.stop();
}

void Transport::halt() {
  core_.state.stopRequested = true;
  sequencer_.forget();
  stream_.leave();
  duration_->stop();
  for (auto* timer : {&core_.timers.StillTimer, &core_.timers.Timer5, &core_.timers.Timer7}) timer->stop();
  if (core_.clip() != nullptr) stopLoaded();
}

void Transport::NextMovie() {
  const int number = core_.icurMov();
  if (number >= 1 && number < core_.collection.MovieList.count()) PreviewMovie(number + 1);
}

void Transport::Img_Play_Click() {
  auto* clip = core_.clip();
  if (clip == nullptr) return;
  core_.state.stopRequested = false;
  // The pause between two clips ends with the key; one that was stopped in it begins.
  if (core_.mode.player.clipWaits && !sequencer_.waits()) core_.state.command = SequencerCommand::Curr;
  if (sequencer_.waits()) return sequencer_.carryOutNow();
  if (clip->IsStill()) {
    if (core_.mode.IsMiniMode && core_.settings.user.StillDelayTimer > 0) core_.timers.StillTimer.start();
    return;
  }
  if (clip->IsHTML() || clip->IsTrueQT4()) return PreviewMovie(core_.icurMov());
  core_.button(KeyWord::PlayOn);
  core_.button(KeyWord::PauseOff);
  if (kindOfFile(*clip) == "CDA") {
    if (core_.guests.disc == nullptr) return core_.button(KeyWord::AllOff);
    core_.guests.disc->playing() ? core_.guests.disc->resume() : PreviewMovie(core_.icurMov());
    return core_.button(core_.guests.disc->playing() ? KeyWord::PlayOn : KeyWord::PauseOn);
  }
  playLoaded();
}

void Transport::playLoaded() {
  auto& player = core_.player;
  const int number = core_.icurMov();
  autoRewind();
  player.PlayerSetDisplayMode(DisplayMode::Seconds);
  if (player.PlayerIsEmpty()) {
    core_.mode.player.IsPaused = false;
    PreviewMovie(number);
    core_.host.Displaymovieinfo(number);
    // Sound waits for the key, which has been pressed.
    if (player.PlayerIsEmpty()) return core_.button(KeyWord::AllOff);
  }
  if (player.PlayerGetRate() != 1 && !core_.editing())
    player.PlayerSetRate(static_cast<double>(core_.clip()->Playspeed()) / 10);
  player.GlobalMediaPlay();
  core_.button(KeyWord::PlayOn);
  core_.timers.Timer5.start();
  core_.mode.player.IsPlaying = true;
}

void Transport::playPressed(const PlayPress& press) {
  core_.host.endMarkDrag();
  core_.state.stopRequested = false;
  auto* clip = core_.clip();
  if (clip == nullptr) return;
  core_.timers.Timer7.stop();
  if (core_.mode.player.clipWaits) return Img_Play_Click();
  if (leaveStill(*clip)) return;
  const bool moves = std::ranges::find(kRateKinds, kindOfFile(*clip)) != kRateKinds.end();
  if (press.shift && playBackwards(*clip)) return;
  if (press.right && moves) {
    if (core_.player.PlayerSetRate(1)) core_.host.keepSpeed(core_.player.PlayerGetRate());
    return core_.host.Displaymovieinfo(core_.icurMov());
  }
  Img_Play_Click();
}

// A still that does not go on by itself goes on by the key, behind the last clip to the first.
bool Transport::leaveStill(const Movie& clip) {
  const bool timed = core_.fullScreen() && core_.settings.user.StillDelayTimer > 0;
  const int count = core_.collection.MovieList.count();
  if (!clip.IsStill() || timed || count < 2) return false;
  const int number = core_.icurMov();
  playFrom(number < count ? number + 1 : 1);
  return true;
}

void Transport::playFrom(int number) {
  core_.mode.player.IsPaused = false;
  core_.host.select(number);
  core_.state.command = SequencerCommand::Curr;
  sequencer_.carryOutNow();
}

void Transport::playAll() {
  if (core_.clip() == nullptr) return;
  core_.state.stopRequested = false;
  playFrom(1);
}

bool Transport::playBackwards(const Movie& clip) {
  constexpr int kBackwards = 100;  // milliseconds a picture
  if (isSoundClip(clip) || !isFileThatPlays(clip)) return false;
  if (core_.player.PlayerIsEmpty() || !core_.player.canSeek()) return false;
  core_.timers.Timer7.setInterval(kBackwards);
  core_.timers.Timer7.start();
  core_.button(KeyWord::PlayOn);
  return true;
}

// Timer7.
void Transport::stepBack() {
  auto& player = core_.player;
  if (player.PlayerIsEmpty() || !player.canSeek()) return core_.timers.Timer7.stop();
  stepsBack_ = true;
  player.PlayerSetDisplayMode(DisplayMode::Frames);
  if (player.PlayerGetCurrentPosition() <= 0) {
    player.PlayerSetCurrentPosition(player.PlayerGetDuration());
  } else {
    player.PlayerStop();
    player.PlayerStep(-1);
  }
  stepsBack_ = false;
  core_.host.showPosition();
}

void Transport::Lbl_PauseGraphic_Click() {
  core_.state.stopRequested = true;
  const auto* clip = core_.clip();
  if (clip == nullptr) return;
  if (core_.timers.StillTimer.enabled()) return core_.timers.StillTimer.stop();
  if (kindOfFile(*clip) == "CDA") {
    auto* disc = core_.guests.disc;
    if (disc != nullptr) disc->playing() ? disc->pause() : disc->resume();
    return;
  }
  if (core_.running() || core_.timers.Timer7.enabled()) {
    Image8_Click();
    core_.mode.player.IsPlaying = false;
    return;
  }
  if (core_.player.streamReport().opening == EngineOpening::Connecting) return;  // its next tick ends it
  clip->IsStill() ? Img_Play_Click() : Lbl_PlayGraphic_Click();
}

void Transport::Image8_Click() {
  core_.state.stopRequested = true;
  if (core_.clip() == nullptr) return;
  if (core_.timers.StillTimer.enabled()) return core_.timers.StillTimer.stop();
  sequencer_.forget();
  stopLoaded();
}

void Transport::stopLoaded() {
  core_.button(KeyWord::PauseOn);
  core_.player.PlayerStop();
  core_.mode.player.IsPlaying = false;
  core_.mode.player.IsPaused = true;
  if (core_.guests.disc != nullptr && kindOfFile(*core_.clip()) == "CDA") core_.guests.disc->stop();
}

void Transport::pictureClicked(PictureButton button) {
  auto& toolbar = core_.mode.toolbar.Img_Toolbar.visible;
  if (core_.mode.IsMiniMode && !toolbar) {
    toolbar = true;
    return;
  }
  if (stream_.connects()) {  // its next tick ends it
    core_.state.stopRequested = true;
    return;
  }
  const auto* clip = core_.clip();
  if (clip == nullptr || core_.player.PlayerIsEmpty()) return;
  if (sequencer_.waits() || core_.mode.player.clipWaits) {
    Img_Play_Click();
  } else {
    togglePlay();
  }
  if (button != PictureButton::Right && core_.guests.remote != nullptr) core_.guests.remote->show();
}

void Transport::togglePlay() {
  const bool plays = core_.mode.player.IsPlaying;
  if (plays) {
    core_.player.PlayerPause();
  } else {
    core_.state.stopRequested = false;
    core_.player.GlobalMediaPlay();
  }
  core_.mode.player.IsPlaying = !plays;
  core_.mode.player.IsPaused = plays;
  if (!core_.fullScreen() && !core_.editing()) core_.button(plays ? KeyWord::PauseOn : KeyWord::PlayOn);
}

void Transport::mnu_Looping_Click() {
  const bool loops = core_.order().mnu_Looping;
  core_.player.PlayerSetPlayCount(loops ? kForEver : 1);
  orderChanged();
  const auto& shown = core_.mode.player;
  if (!loops || !shown.visible || shown.clipWaits || core_.player.PlayerIsEmpty()) return;
  core_.state.stopRequested = false;
  core_.player.GlobalMediaPlay();
  core_.button(KeyWord::PlayOn);
}

void Transport::orderChanged() {
  autoRewind();
  if (core_.clip() != nullptr) openNextAhead();
}

// Stills go on by themselves only where the picture covers the screen, and go round there.
void Transport::stillTick() {
  auto& timer = core_.timers.StillTimer;
  const int count = core_.collection.MovieList.count();
  if (count == 0) return timer.stop();
  if (!core_.fullScreen() || core_.host.busy()) return;
  if (core_.editing()) return timer.stop();
  const Holding follows(follows_);
  if (core_.icurMov() < count) {
    core_.host.Lbl_NextMov_Click();
  } else {
    // The last one stays for a tick more.
    core_.state.StillWrapDue = !core_.state.StillWrapDue;
    if (!core_.state.StillWrapDue) PreviewMovie(1);
  }
}

}  // namespace kvo
