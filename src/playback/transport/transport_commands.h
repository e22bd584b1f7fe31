// What steers the transport, as those see it who only give it orders.
#pragma once

namespace kvo {

class TransportCommands {
 public:
  TransportCommands() = default;
  TransportCommands(const TransportCommands&) = delete;
  TransportCommands& operator=(const TransportCommands&) = delete;
  virtual ~TransportCommands() = default;

  /// Makes clip `index` (from 1; 0 is the first) the one in hand and loads it.
  virtual void PreviewMovie(int index) = 0;
  /// The clip behind the one in hand, where there is one.
  virtual void NextMovie() = 0;
  /// Play.
  virtual void Img_Play_Click() = 0;
  /// Pause, and back to play.
  virtual void Lbl_PauseGraphic_Click() = 0;
  /// Play, which also ends the drag of a mark.
  virtual void Lbl_PlayGraphic_Click() = 0;
  /// Stop.
  virtual void Image8_Click() = 0;
};

}  // namespace kvo
