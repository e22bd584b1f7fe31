// What is looked at while a clip is in the player: its end where the engine does not tell of it, and what is
// written of its place and its stream.
#pragma once

#include "playback/transport/sequencer.h"
#include "playback/transport/stream_opening.h"

#include <functional>
#include <utility>

namespace kvo {

class Monitor {
 public:
  /// `preview` loads a clip by its number; false when another has come in hand meanwhile.
  Monitor(TransportCore& core, Sequencer& sequencer, StreamOpening& stream, std::function<bool(int)> preview)
      : core_(core), sequencer_(sequencer), stream_(stream), preview_(std::move(preview)) {}

  /// Of Timer1.
  void tick();
  /// Another clip: the marquee begins anew.
  void clipChanges() {
    marqueeAt_ = 0;
    endTold_ = false;
  }
  /// The graph of the clip in hand stands at its stop time.
  void graphAtEnd();

 private:
  void watchGraph();
  void watchDvd();
  void dvdEnded(const Movie& clip);
  void showMarquee(const Movie& clip);

  TransportCore& core_;
  Sequencer& sequencer_;
  StreamOpening& stream_;
  std::function<bool(int)> preview_;
  bool endTold_ = false;       // of a player that stands at its end
  std::size_t marqueeAt_ = 0;  // characters that have gone by
};

}  // namespace kvo
