// The shuttle device: a wheel with keys that comes as a keyboard of capital letters.
#pragma once

#include "playback/positions/positioner.h"
#include "playback/positions/rate.h"
#include "playback/positions/remote_commands.h"

namespace kvo {

class Shuttle {
 public:
  struct Parts {
    PositionsCore& core;
    Marks& marks;
    Stepping& stepping;
    Rate& rate;
    RemoteCommands& remote;
    Positioner& positioner;
  };
  explicit Shuttle(const Parts& parts);

  [[nodiscard]] bool IsShuttleProInstalled() const;

  /// Does what one of the codes 65 to 90 stands for; false for another, or without a clip.
  bool KeyCommandSHUTTLEPRO(int code);

  /// Below 3.0 a rate; above it jumps, as many as the number says, which begin anew at Mark-In when they have
  /// passed Mark-Out.
  void ApplyShuttleFWDSpeed(double rate);
  /// Steps back every so many milliseconds, by large steps when that is often, down to Mark-In.
  void ApplyShuttleBCKSpeed(int interval);
  /// The wheel is let go, or another clip comes in hand: whatever it drove ends.
  void rest();

 private:
  void jump();
  void toStart();
  void stand();
  void stepOn();

  Parts parts_;
  PositionsCore& core_;
  int jumps_ = 0;        // still to be made
  double jumpedTo_ = 0;  // seconds; what is shown may be a part of a frame behind
  std::unique_ptr<Timer> jumping_;
  std::unique_ptr<Timer> watch_;  // for Mark-In
};

}  // namespace kvo
