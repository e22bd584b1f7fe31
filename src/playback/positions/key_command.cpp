#include "playback/positions/key_command.h"

namespace kvo {

bool KeyCommands::clip(int number) {
  if (number < 1 || number > core_.collection.MovieList.count()) return false;
  core_.transport.PreviewMovie(number);
  return true;
}

void KeyCommands::to(double seconds, bool play) {
  if (!core_.canSeek()) return;
  core_.player.PlayerStop();
  core_.player.PlayerSetDisplayMode(DisplayMode::Seconds);
  core_.seekSeconds(seconds);
  if (!play) return core_.buttons.BuildButton("PAUSEON");
  core_.player.GlobalMediaPlay();
  core_.buttons.BuildButton("PLAYON");
  core_.buttons.BuildButton("PAUSEOFF");
  core_.timers.Timer5.start();
}

bool KeyCommands::KeyCommand(int key) {
  if (clipInHand(core_.collection) == nullptr) return false;
  const bool shuttle = shuttle_.IsShuttleProInstalled();
  if (shuttle && key >= 'A' && key <= 'Z') return shuttle_.KeyCommandSHUTTLEPRO(key);
  if (key >= '1' && key <= ':') return clip(key - '0');  // the colon follows the 9, and is 10
  const InMode seconds(core_.player, DisplayMode::Seconds);
  const double length = core_.slider.duration();
  switch (key >= 'a' && key <= 'z' && key != 'l' ? key - 'a' + 'A' : key) {
    case ' ':
    case 'P':
      core_.mode.player.IsPlaying ? remote_.Lbl_Pause_Click() : remote_.Lbl_Play_Click();
      return true;
    case ',':
    case kArrowLeft:
      remote_.step(Step::Rew1);
      return true;
    case '.':
    case kArrowRight:
      remote_.step(Step::Adv1);
      return true;
    case '<':
    case 188:
      remote_.step(Step::Rew5);
      return true;
    case '>':
    case 190:
      remote_.step(Step::Adv5);
      return true;
    case 'D':
      remote_.rate("2.0");
      return true;
    case 'E':
      to(length > 1 ? length - 1 : 0, false);
      return true;
    case 'H':
      if (!shuttle) remote_.rate("0.50");
      return !shuttle;
    case 'I':
      to(length / 2, true);
      return true;
    case 'L':
      if (core_.doors.remotePanel) core_.doors.remotePanel();
      return static_cast<bool>(core_.doors.remotePanel);
    case 'M':
      remote_.Lbl_Mute_Click();
      return true;
    case 'N':
      if (!shuttle) remote_.Lbl_Play_Click();
      return !shuttle;
    case 'Q':
      if (!shuttle) remote_.rate("0.25");
      return !shuttle;
    case 'S':
      if (!shuttle) to(0, true);
      return !shuttle;
    case 'T':
      core_.transport.NextMovie();
      return true;
    case 'V':
      remote_.Lbl_PrevMov_Click();
      return true;
    default:
      return false;
  }
}

}  // namespace kvo
