#include "playback/positions/key_command.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kvo {

bool KeyCommands::clip(int number) {
  if (number < 1 || number > core_.collection.MovieList.count()) return false;
  core_.transport.PreviewMovie(number);
  return true;
}

double KeyCommands::length() const {
  const InMode seconds(core_.player, DisplayMode::Seconds);
  return core_.slider.duration();
}

void KeyCommands::to(double seconds, bool play) {
  if (!core_.canSeek()) return;
  core_.player.PlayerStop();
  core_.player.PlayerSetDisplayMode(DisplayMode::Seconds);
  core_.seekSeconds(seconds);
  if (!play) return core_.buttons.BuildButton(KeyWord::PauseOn);
  core_.player.GlobalMediaPlay();
  core_.buttons.BuildButton(KeyWord::PlayOn);
  core_.buttons.BuildButton(KeyWord::PauseOff);
  core_.timers.Timer5.start();
}

bool KeyCommands::KeyCommand(int key) {
  struct Act {
    std::array<int, 2> keys;  // 0: none
    void (*act)(KeyCommands&);
    bool besideShuttle = true;
  };
  static constexpr Act kActs[] = {
      {{' ', 'P'},
       [](KeyCommands& keys) {
         keys.core_.mode.player.IsPlaying ? keys.remote_.Lbl_Pause_Click() : keys.remote_.Lbl_Play_Click();
       }},
      {{',', kArrowLeft}, [](KeyCommands& keys) { keys.remote_.step(Step::Rew1); }},
      {{'.', kArrowRight}, [](KeyCommands& keys) { keys.remote_.step(Step::Adv1); }},
      {{'<', 188}, [](KeyCommands& keys) { keys.remote_.step(Step::Rew5); }},
      {{'>', 190}, [](KeyCommands& keys) { keys.remote_.step(Step::Adv5); }},
      {{'D'}, [](KeyCommands& keys) { keys.remote_.rate("2.0"); }},
      {{'E'}, [](KeyCommands& keys) { keys.to(std::max(keys.length() - 1, 0.0), false); }},
      {{'H'}, [](KeyCommands& keys) { keys.remote_.rate("0.50"); }, false},
      {{'I'}, [](KeyCommands& keys) { keys.to(keys.length() / 2, true); }},
      {{'L'}, [](KeyCommands& keys) { keys.core_.doors.remotePanel(); }},
      {{'M'}, [](KeyCommands& keys) { keys.remote_.Lbl_Mute_Click(); }},
      {{'N'}, [](KeyCommands& keys) { keys.remote_.Lbl_Play_Click(); }, false},
      {{'Q'}, [](KeyCommands& keys) { keys.remote_.rate("0.25"); }, false},
      {{'S'}, [](KeyCommands& keys) { keys.to(0, true); }, false},
      {{'T'},
       [](KeyCommands& keys) {
         keys.core_.host.windowVisible() ? keys.core_.transport.NextMovie()
                                         : keys.remote_.Lbl_NextMov_Click();
       }},
      {{'V'}, [](KeyCommands& keys) { keys.remote_.Lbl_PrevMov_Click(); }},
  };
  if (key <= 0 || clipInHand(core_.collection) == nullptr) return false;
  const bool shuttle = shuttle_.IsShuttleProInstalled();
  if (shuttle && key >= 'A' && key <= 'Z') return shuttle_.KeyCommandSHUTTLEPRO(key);
  if (key >= '1' && key <= ':')  // the colon follows the 9, and is 10
    return core_.host.windowVisible() && clip(key - '0');
  const int meant = key >= 'a' && key <= 'z' && key != 'l' ? key - 'a' + 'A' : key;
  const auto* found = std::ranges::find_if(
      kActs, [meant](const Act& act) { return act.keys[0] == meant || act.keys[1] == meant; });
  if (found == std::end(kActs) || (shuttle && !found->besideShuttle)) return false;
  if (meant == 'L' && !core_.doors.remotePanel) return false;
  found->act(*this);
  return true;
}

}  // namespace kvo
