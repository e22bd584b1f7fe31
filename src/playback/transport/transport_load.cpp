// How a clip comes into the player, or on the other surfaces.
#include "base/paths.h"
#include "base/text.h"
#include "core/telling/translated.h"
#include "intake/asx_stream.h"
#include "playback/captions.h"
#include "playback/transport/transport.h"

#include <utility>

namespace kvo {
namespace {

constexpr int kMonitorInterval = 600;  // milliseconds
constexpr int kDiscMonitorInterval = 400;
constexpr int kDurationStep = 20;
constexpr int kDurationLooks = 100;  // 2 seconds

TransportTips stepTips(const char* rewind, const char* advance) { return {rewind, advance}; }

const TransportTips kFileTips =
    stepTips("Right-Click to position to start or Click or Hold Down to rewind 5 frames",
             "Right-Click to position to end or Click or Hold Down to advance 5 frames");
const TransportTips kDvdTips =
    stepTips("Right-Click for Previous Chapter or Click or Hold Down to rewind 5 secs",
             "Right-Click for Next Chapter or Click or Hold Down to advance 5 secs");
const TransportTips kDiscTips =
    stepTips("Right-Click for Previous Track or Click or Hold Down to rewind 5 secs",
             "Right-Click for Next Track or Click or Hold Down to advance 5 secs");
const TransportTips kStillTips = stepTips("Click for Previous Clip", "Click for Next Clip");

}  // namespace

void Transport::PreviewMovie(int index) { loadClip(index == 0 ? 1 : index); }

// False where that is not the clip in hand behind it: there is none, or the user has chosen another
// meanwhile.
bool Transport::loadClip(int number) {
  if (number < 1 || number > core_.collection.MovieList.count()) return false;
  core_.mode.clipFollows = std::exchange(follows_, false);
  letGo();
  const auto mine = loads_;
  core_.host.select(number);
  load(number, core_.collection.MovieList[number]);
  if (mine != loads_) return false;
  if (core_.mode.player.IsPaused) {
    core_.button(KeyWord::PauseOn);
  } else if (core_.player.PlayerIsEmpty()) {
    core_.button(KeyWord::AllOff);
  }
  core_.timers.Timer6.start();
  return true;
}

bool Transport::follow(int number) {
  follows_ = true;
  return loadClip(number);
}

void Transport::empty() {
  letGo();
  core_.display.leaveFullPicture();
  core_.emptyPlayer();
  core_.player.openAhead(0);
  core_.mode.still = {};
  core_.button(KeyWord::AllOff);
  core_.mode.player.IsPaused = false;
}

// Of the clip before.
void Transport::letGo() {
  auto& timers = core_.timers;
  ++loads_;
  ++acts_;
  sequencer_.forget();
  stream_.leave();
  monitor_.clipChanges();
  duration_->stop();
  core_.state.tips = {};
  core_.mode.panels.Pic_DigNumbers = true;
  core_.state.stopRequested = false;
  core_.mode.player.clipWaits = false;
  ++core_.mode.panels.osdsKilled;
  core_.host.closeClipWindows();
  if (core_.guests.wave != nullptr) core_.guests.wave->HideWavSpikes();
  if (timers.IntroEnder.enabled()) core_.player.PlayerClear();
  core_.display.EndAnim();
  for (auto* timer :
       {&timers.Timer1, &timers.Timer3, &timers.Timer5, &timers.Timer6, &timers.Timer7, &timers.StillTimer})
    timer->stop();
  timers.Timer1.setInterval(kMonitorInterval);
}

void Transport::load(int number, const Movie& clip) {
  if (clip.IsTrueQT4()) return showElsewhere(clip);
  if (kindOfFile(clip) == "CDA") return showDisc(number);
  if (clip.IsStill()) return showStill();
  core_.mode.still = {};
  if (clip.IsTrueRM()) return core_.emptyPlayer();
  if (clip.IsHTML()) return ShowWeb(clip);
  if (hasAddress(clip) || IsASXAStream(clip, core_.files)) return stream_.ShowStreamWMP(number);
  playFile(number);
}

void Transport::showElsewhere(const Movie& clip) {
  core_.display.leaveFullPicture();
  if (core_.guests.disc != nullptr) core_.guests.disc->pause();
  core_.mode.still = {};
  core_.player.Med_previewClear();
  core_.display.PositionAndSize();
  core_.player.PlayerHide();
  core_.player.SendPlayerFarLeft();
  const auto file = clipFile(clip);
  const bool shown = isAddress(file) ? core_.desktop.openPage(file) : core_.desktop.openFile(file);
  core_.state.lbl_Novid = {
      .text = translated(shown ? "%1 is shown by another program" : "%1 has no program that shows it",
                         {clip.MovieName()})};
  core_.mode.panels.Pic_NoVid = true;
}

void Transport::showStill() {
  core_.state.tips = kStillTips;
  core_.emptyPlayer();
  core_.display.PositionAndSize();
  core_.mode.panels.Pic_DigNumbers = core_.mode.panels.Pic_NoVid = false;
  const int seconds = core_.settings.user.StillDelayTimer;
  core_.timers.StillTimer.setInterval(std::max(seconds, 1) * 1000);
  core_.timers.StillTimer.enable(seconds >= 1);
  openNextAhead();
}

void Transport::ShowWeb(const Movie& clip) {
  core_.display.leaveFullPicture();
  core_.pages.close();
  core_.timers.Timer4.stop();
  core_.emptyPlayer();
  const auto address = clipFile(clip);
  const bool beside = core_.settings.state.HideKVOOnWebshow && !core_.mode.IsMiniMode;
  if (core_.pages.show(address, !beside)) return;
  isAddress(address) ? core_.desktop.openPage(address) : core_.desktop.openFile(address);
}

void Transport::showDisc(int number) {
  core_.state.tips = kDiscTips;
  core_.player.Med_previewClear();
  core_.player.CoronaClear();
  core_.host.caption(translated("KVO V5 CD-Audio"));
  if (core_.guests.disc != nullptr) core_.guests.disc->CDAudioDisplayMode(number);
  core_.timers.Timer1.setInterval(kDiscMonitorInterval);
  core_.timers.Timer1.start();
}

void Transport::playFile(int number) {
  const auto& clip = core_.collection.MovieList[number];
  core_.state.tips = isDvdFile(clip.MovieName()) ? kDvdTips : kFileTips;
  if (core_.editing()) {
    core_.player.PlayerHide();
    core_.player.SendPlayerFarLeft();
    if (core_.guests.wave != nullptr && core_.guests.wave->showInEditor(number)) return;
  }
  core_.player.CoronaClear();
  ShowNormalWMP(number);
}

void Transport::ShowNormalWMP(int number) {
  auto& player = core_.player;
  const auto& clip = core_.collection.MovieList[number];
  player.PlayerStop();
  player.PlayerHide();
  player.PlayerClear();
  player.PlayerSetTop(0);
  player.PlayerSetAutoStart(false);
  player.SendPlayerFarLeft();
  const auto load = loads_;
  player.PlayerSetFilename(clipFile(clip), number);
  if (load != loads_) return;
  applyCaptions(player, core_.files, core_.settings.state.ShowCaps);
  player.PlayerSetDisplaySize(core_.mode.IsFullScreenWindow ? 2 : 0);
  durationLooks_ = 0;
  if (!holdsText(clip.MovieName(), "ASX")) return fileLoaded();
  player.PlayerShow();
  player.GlobalMediaPlay();
  WaitForValidDuration();
}

void Transport::WaitForValidDuration() {
  if (core_.player.PlayerGetDuration() > 0 || durationLooks_++ >= kDurationLooks) {
    duration_->stop();
    return fileLoaded();
  }
  if (!duration_->running()) duration_->start(kDurationStep);
}

void Transport::fileLoaded() {
  auto& player = core_.player;
  const int number = core_.icurMov();
  auto& clip = core_.collection.MovieList[number];
  takeSourceSize(clip);
  player.PlayerSetDisplayMode(DisplayMode::Seconds);
  core_.host.SectionToPlay(false);
  settle();
  player.PlayerShow();
  core_.display.PositionAndSize();
  core_.host.Displaymovieinfo(number);
  if (player.PlayerIsEmpty()) tellOfFile(clip);
  if (!core_.mode.player.IsPaused && kindOfFile(clip) != "WAV" && !player.PlayerIsEmpty())
    player.GlobalMediaPlay();
  played(number);
}

// In the picture's place: a box for each of many would be in the way. The player's line names the file ahead
// of the reason.
void Transport::tellOfFile(const Movie& clip) {
  const auto file = clipFile(clip);
  const auto why = core_.player.PlayerGetErrorDescription();
  const bool there = core_.files.exists(file);
  auto text = translated(there ? "%1 cannot be played" : "%1 is not there any more", {clip.MovieName()});
  const auto named = file + ": ";
  if (const auto at = why.find(named); there && at != std::string::npos)
    text.append(kCrLf).append(why, at + named.size());
  core_.state.lbl_Novid = {.text = std::move(text)};
  core_.mode.panels.Pic_NoVid = true;
}

void Transport::takeSourceSize(Movie& clip) {
  if (clip.MovieHeight() != 0) return;
  clip.MovieHeight(static_cast<Integer>(core_.player.PlayerGetSourceHeight()));
  clip.MovieWidth(static_cast<Integer>(core_.player.PlayerGetSourceWidth()));
}

// What a clip sets of the engine, which another clip had before.
void Transport::settle() {
  core_.player.PlayerSetPlayCount(core_.order().mnu_Looping ? kForEver : 1);
  autoRewind();
  core_.host.clipLoaded();
}

void Transport::autoRewind() { core_.player.PlayerSetAutoRewind(core_.order().rewinds()); }

// Behind any clip that plays by itself.
void Transport::played(int number) {
  auto& timers = core_.timers;
  if (core_.guests.wave != nullptr) core_.guests.wave->clipLoaded(number);
  timers.Timer1.start();
  timers.Timer5.setInterval(core_.settings.user.SliderSpeed);
  timers.Timer5.start();
  timers.Timer6.start();
  const bool paused = core_.mode.player.IsPaused;
  if (!paused && !core_.running()) {
    core_.button(KeyWord::AllOff);  // it waits for its key
  } else if (!paused && !core_.fullScreen()) {
    core_.button(KeyWord::PlayOn);
  }
  if (core_.fullScreen() && core_.settings.user.DefaultZoom100) {
    if (!core_.editing()) core_.display.ResizePercent(100);
    if (!paused) core_.player.GlobalMediaPlay();
  }
  core_.host.showPosition();
  openNextAhead();
}

// As things are now; nothing is lost when they change.
void Transport::openNextAhead() {
  const auto ended = sequencer_.endedClip();
  const int next = clipThatFollows(ended);
  core_.player.openAhead(next == ended.number ? 0 : next);
}

}  // namespace kvo
