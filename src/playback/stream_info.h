// What frmStreamInfo shows, from what the player tells of the stream in it.
#pragma once

#include "playback/player.h"
#include "playback/stream_info_state.h"
#include "ports/event_loop.h"

#include <memory>

namespace kvo {

class StreamInfo {
 public:
  /// All outlive it.
  StreamInfo(StreamInfoState& state, Player& player, EventLoop& loop);

  /// A click on the stream label opens the window, which then follows the connection; nothing while the
  /// player is empty. It closes by itself when the player is emptied.
  void Lbl_StreamInfo_Click();
  /// "More": tells whatever else the stream tells, or no longer.
  void more();
  /// Plays the sound, or shows the text, of this number among the choices, from 0; one that is chosen already
  /// is taken back where it is a text.
  void choose(std::size_t choice);
  void done();

 private:
  void tell();

  StreamInfoState& state_;
  Player& player_;
  std::unique_ptr<Timer> follow_;
};

}  // namespace kvo
