// What letters and digits do in the main window, in all its faces.
#pragma once

#include "program/list_commands.h"

namespace kvo {

class KeyCommands {
 public:
  KeyCommands(const MainWindowState& window, ListCommands& list) : window_(window), list_(list) {}

  /// Does what the key stands for. False, and nothing done, for one that stands for nothing, and while no
  /// clip is in hand. Letters are taken in both cases.
  bool KeyCommand(char key);

 private:
  bool select(int number);

  const MainWindowState& window_;
  ListCommands& list_;
};

}  // namespace kvo
