#include "playback/transport/monitor.h"

#include "base/text.h"

namespace kvo {
namespace {

constexpr Twips kPositionLabelTop = 3500;
constexpr std::size_t kMarqueeLead = 30;  // blanks

}  // namespace

void Monitor::tick() {
  core_.display.SortFullScreen();
  const auto* clip = core_.clip();
  if (clip == nullptr) return;
  core_.mode.panels.Pic_DigNumbers = !core_.mode.Med_AudAnim.visible && !clip->IsStill();
  if (core_.mode.panels.Fillist.visible) core_.mode.panels.Lbl_Pos.place.top = kPositionLabelTop;
  showMarquee(*clip);
  if (kindOfFile(*clip) == "CDA") {
    if (core_.guests.disc != nullptr) core_.guests.disc->poll();
    return;
  }
  if (!core_.mode.player.clipWaits) core_.player.holdSelectionEnd();
  core_.host.showPosition();
  stream_.watch();
  clip = core_.clip();  // a stream that fails is told in a box
  // An end is told once: what it has led to is under way, or the user has stopped there.
  if (clip == nullptr || sequencer_.waits() || core_.mode.player.clipWaits || core_.host.busy() ||
      core_.player.PlayerIsEmpty())
    return;
  isDvdFile(clip->MovieName()) ? watchDvd() : watchGraph();
}

void Monitor::showMarquee(const Movie& clip) {
  if (core_.mode.IsMiniMode || core_.settings.state.ScrMarq == 0) return;
  const auto words = clip.TexttoDisplay().text();
  if (words.empty()) return;
  const auto text = blanks(kMarqueeLead) + words;
  if (marqueeAt_ >= characterCount(text)) marqueeAt_ = 0;
  core_.host.FadBorder(text.substr(cutTo(text, marqueeAt_).size()));
  ++marqueeAt_;
}

void Monitor::watchGraph() {
  auto& player = core_.player;
  if (!player.UsingCorona()) return;
  if (player.coronaAtStopTime()) return graphAtEnd();
  endTold_ = false;
}

void Monitor::graphAtEnd() {
  if (sequencer_.waits() || core_.mode.player.clipWaits) return;
  const auto order = core_.order();
  // A collection that goes round goes on from a player that has been stopped too, unless it was there.
  const bool told = std::exchange(endTold_, true);
  const bool goesRound = order.mnu_LoopCollectionsOnPlayback && !order.rewinds();
  if (core_.mode.player.IsPaused && (told || !goesRound)) return;
  if (core_.host.startUpVideoEnded()) return;
  const bool last = core_.icurMov() >= core_.collection.MovieList.count();
  if (!order.rewinds() && (order.mnu_LoopCollectionsOnPlayback || !last)) return sequencer_.EndOfStream();
  if (!order.rewinds() && order.mnu_Looping) {  // a graph knows no number of plays
    core_.state.command = SequencerCommand::Redo;
    return;
  }
  core_.timers.Timer5.stop();
  if (order.rewinds()) {
    core_.toLoopStart();
    core_.host.showPosition();
  }
  core_.button(KeyWord::PauseOn);
}

void Monitor::watchDvd() {
  auto& player = core_.player;
  const double position = player.PlayerGetCurrentPosition();
  const double end = player.PlayerGetSelectionEnd();
  if (position < end || core_.mode.player.IsPaused) return;
  if (position + end == 0) return core_.display.ShowSliderStuff();
  player.PlayerPause();
  if (const auto* clip = core_.clip()) dvdEnded(*clip);
}

void Monitor::dvdEnded(const Movie& clip) {
  auto& player = core_.player;
  const auto order = core_.order();
  const auto toMarkIn = [&] {
    const auto before = player.PlayerGetDisplayMode();
    player.PlayerSetDisplayMode(DisplayMode::Frames);
    player.PlayerSetCurrentPosition(clip.LoopStartFrames());
    player.PlayerSetDisplayMode(before);
  };
  if (order.mnu_Looping) {
    toMarkIn();
    player.GlobalMediaPlay();
    core_.timers.Timer5.start();
    return core_.display.ShowSliderStuff();
  }
  if (order.rewinds()) {
    toMarkIn();
    player.PlayerPause();
    return core_.button(KeyWord::PauseOn);
  }
  const int count = core_.collection.MovieList.count();
  const int number = core_.icurMov();
  const bool around = order.mnu_LoopCollectionsOnPlayback;
  if (core_.state.stopRequested || (number >= count && !around)) return core_.button(KeyWord::PauseOn);
  if (count > 1 && !preview_(number < count ? number + 1 : 1)) return;
  player.GlobalMediaPlay();
}

}  // namespace kvo
