// What goes on behind a clip's end: EndOfStream decides it and leaves a command, Timer6 carries that out once
// the engine's event has been left and the pause between two clips is over.
#pragma once

#include "playback/transport/transport_core.h"

#include <functional>
#include <utility>

namespace kvo {

class Sequencer {
 public:
  /// `preview` loads a clip by its number; false when another has come in hand meanwhile.
  Sequencer(TransportCore& core, std::function<bool(int)> preview)
      : core_(core), preview_(std::move(preview)) {}

  /// The clip in the player has ended. While a command of the user is under way that is kept in mind.
  void EndOfStream();
  /// Arms Timer6: half a second, or the pause between clips, which is shown as one.
  void DelayedTimerStart();
  /// Of Timer6.
  void tick();

  /// Carries out what waits, without the rest of the wait.
  void carryOutNow();
  /// Lets go of what waits.
  void forget();
  [[nodiscard]] bool waits() const { return core_.state.command != SequencerCommand::None; }

  /// The clip in hand, as if it had just ended.
  [[nodiscard]] EndedClip endedClip() const;

 private:
  void apply(const WhatFollows& follows);
  void carryOut();
  void Curr(int number);
  void Redo();
  void Next();
  void Kill();
  void playOn();

  TransportCore& core_;
  std::function<bool(int)> preview_;
  bool endWaits_ = false;  // an end that came while the collection was not to be touched
  bool carries_ = false;   // a command is at work, which lets ticks through
};

}  // namespace kvo
