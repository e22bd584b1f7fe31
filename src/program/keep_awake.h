// The screen stays awake while a picture plays.
#pragma once

#include "ports/screen_saver.h"
#include "program/main_window_state.h"

namespace kvo {

class KeepAwake {
 public:
  /// Both outlive the object.
  KeepAwake(const MainWindowState& window, ScreenSaver& saver) : window_(window), saver_(saver) {}

  /// The state is whole: the screen saver is told when it is another.
  void settled() {
    const auto& player = window_.mode.player;
    const bool needed = player.IsPlaying && player.sourceWidth > 0;
    if (needed == kept_) return;
    kept_ = needed;
    saver_.inhibit(needed);
  }

 private:
  const MainWindowState& window_;
  ScreenSaver& saver_;
  bool kept_ = false;
};

}  // namespace kvo
