// What the keys of the keyboard do that no control has taken.
#pragma once

#include "playback/positions/remote_commands.h"
#include "playback/positions/shuttle.h"

namespace kvo {

class KeyCommands {
 public:
  KeyCommands(PositionsCore& core, RemoteCommands& remote, Shuttle& shuttle)
      : core_(core), remote_(remote), shuttle_(shuttle) {}

  // The arrow keys as codes, beside the characters.
  static constexpr int kArrowLeft = 0x100;
  static constexpr int kArrowRight = 0x101;

  /// Does what a character or a code stands for. False, and nothing done, for one that stands for nothing,
  /// and while no clip is in hand. Letters are taken in both cases, but L, the shuttle's capitals ahead of
  /// all. The combinations with Ctrl are those of the menus: see MainMenu.
  bool KeyCommand(int key);

 private:
  bool clip(int number);
  [[nodiscard]] double length() const;  // seconds
  void to(double seconds, bool play);

  PositionsCore& core_;
  RemoteCommands& remote_;
  Shuttle& shuttle_;
};

}  // namespace kvo
