// What the transport shows and remembers, as data: it writes it, windows draw it.
#pragma once

#include "playback/transport/what_follows.h"

#include <string>

namespace kvo {

/// The panel in the picture's place while there is none.
struct NoVideoLabel {
  std::string text;     ///< "Connecting...", in lines; empty: the panel's own
  bool stream = false;  ///< in the colour for streams
  bool lit = false;     ///< changes as long as something is waited for
  bool stops = false;   ///< a click on it ends the waiting
  bool operator==(const NoVideoLabel&) const = default;
};

/// The labels of a stream that plays.
struct StreamLabels {
  bool Lbl_StreamInfo = false;  ///< they are shown
  std::string bandwidth;        ///< "128000 bps"
  std::string title;            ///< and the author behind it
  std::string progress;         ///< "40%  @ 128000" while it buffers; else empty
  bool buffer = false;          ///< the buffer label is shown: it runs low
  bool bufferLit = false;       ///< in its other colour

  /// What comes in now: how far it buffers, else its rate.
  [[nodiscard]] const std::string& comesIn() const { return progress.empty() ? bandwidth : progress; }
  bool operator==(const StreamLabels&) const = default;
};

/// Tool tips of the two keys at the ends of the steps; empty: their own.
struct TransportTips {
  std::string rewind;
  std::string advance;
  bool operator==(const TransportTips&) const = default;
};

struct TransportState {
  // Remembered
  SequencerCommand command = SequencerCommand::None;  ///< SequencerCommand: what waits for Timer6
  EndMemory memory;                                   ///< EndCount and LastClipRestarted
  bool StillWrapDue = false;                          ///< the last still is on show in a run of stills
  bool stopRequested = false;  ///< by the user: connecting, and going on by chapters, end

  // Shown
  NoVideoLabel lbl_Novid;
  StreamLabels stream;
  TransportTips tips;
};

}  // namespace kvo
