#include "playback/positions/remote_commands.h"

namespace kvo {

void RemoteCommands::Lbl_Play_Click() {
  if (Aremoviesloaded()) core_.transport.Lbl_PlayGraphic_Click();
}

void RemoteCommands::Lbl_Pause_Click() {
  if (Aremoviesloaded()) core_.transport.Lbl_PauseGraphic_Click();
}

void RemoteCommands::toClip(int direction) {
  const int count = core_.collection.MovieList.count();
  if (!Aremoviesloaded() || count < 2) return;
  const bool goesRound = clipInHand(core_.collection)->IsStill() || core_.settings.user.LoopCol;
  int next = core_.collection.icurMov + direction;
  if (next < 1 || next > count) {
    if (!goesRound) return;
    next = next < 1 ? count : 1;
  }
  for (auto* timer : {&core_.timers.Timer1, &core_.timers.Timer5, &core_.timers.Timer6}) timer->stop();
  core_.transport.PreviewMovie(next);
}

void RemoteCommands::Lbl_NextMov_Click() { toClip(1); }
void RemoteCommands::Lbl_PrevMov_Click() { toClip(-1); }

void RemoteCommands::step(Step which) {
  if (!Aremoviesloaded()) return;
  stepping_.step(which, true);
  if (core_.canSeek() && !core_.mode.player.IsPaused) core_.buttons.BuildButton(KeyWord::PauseOn);
}

void RemoteCommands::rate(std::string_view rateText) {
  if (Aremoviesloaded() && !core_.isTrack() && !hasAddress(*clipInHand(core_.collection)))
    rate_.SetRate(rateText);
}

void RemoteCommands::Lbl_Mute_Click() {
  if (Aremoviesloaded()) levels_.toggleMute();
}

}  // namespace kvo
