// The small picture over the slider: what the clip in hand shows at the place of the pointer. Places are
// gathered on a grid of whole seconds, so that to and fro costs nothing.
#pragma once

#include "program/main_window_state.h"
#include "sketches/sketches.h"

#include <string>

namespace kvo {

class HoverPreview {
 public:
  /// Both outlive the object.
  HoverPreview(Sketches& sketches, MainWindowState& window) : sketches_(sketches), window_(window) {}

  /// The pointer is at this part of the slider's line, 0 to 1.
  void over(double part);
  /// It has left the slider.
  void left();
  /// A sketch of this file has come.
  void came(const std::string& path);
  /// The state is whole: another clip may have come below the pointer.
  void settled();

 private:
  [[nodiscard]] bool hasPicture() const;
  void show();

  Sketches& sketches_;
  MainWindowState& window_;
  std::string path_;  // of the file whose picture is wanted; empty for none
  double seconds_ = 0;
};

}  // namespace kvo
