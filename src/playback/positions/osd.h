// A small display of ten lights that lies over the picture for a while and then fades.
#pragma once

#include "playback/display/display_mode_state.h"
#include "playback/positions/position_state.h"
#include "ports/event_loop.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kvo {

class Osd {
 public:
  static constexpr int kLights = 10;

  /// All outlive it.
  Osd(EventLoop& loop, const DisplayModeState& mode, FadingDisplay& state);

  /// Shows it, from now on for ten ticks of its timer. `lights` is held within 0 to 10.
  void show(std::string title, std::string value, int lights);
  void close();

 private:
  void tick();

  const DisplayModeState& mode_;
  FadingDisplay& state_;
  int ticks_ = 0;
  std::uint64_t killed_ = 0;
  std::unique_ptr<Timer> timer_;
};

}  // namespace kvo
