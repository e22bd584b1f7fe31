// The screen stays awake while a picture plays.
#pragma once

#include "ports/desktop.h"
#include "program/main_window_state.h"

namespace kvo {

class KeepAwake {
 public:
  /// Both outlive the object.
  KeepAwake(const MainWindowState& window, Desktop& desktop) : window_(window), desktop_(desktop) {}

  /// The state is whole: the desktop is told when it is another.
  void settled() {
    const auto& player = window_.mode.player;
    const bool needed = player.IsPlaying && player.sourceWidth > 0;
    if (needed == kept_) return;
    kept_ = needed;
    desktop_.inhibitScreenSaver(needed);
  }

 private:
  const MainWindowState& window_;
  Desktop& desktop_;
  bool kept_ = false;
};

}  // namespace kvo
