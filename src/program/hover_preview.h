// The small picture over the slider: what the clip in hand shows at the place of the pointer. Places are
// gathered on a grid of whole seconds, and what has been fetched is kept, so that to and fro costs nothing.
#pragma once

#include "ports/last_wish.h"
#include "program/main_window_state.h"

#include <map>
#include <memory>

namespace kvo {

class HoverPreview {
 public:
  /// `streams` is asked on another thread; the state is written on the loop's. All outlive the object.
  HoverPreview(FrameSource& streams, EventLoop& loop, MainWindowState& window);

  /// The pointer is at this part of the slider's line, 0 to 1. Pictures are `width` x `height` pixels large.
  void over(double part, int width, int height);
  /// It has left the slider.
  void left();
  /// The state is whole: another clip may have come below the pointer.
  void settled();

 private:
  using Picture = std::shared_ptr<const FramePicture>;

  [[nodiscard]] bool hasPicture() const;
  void show(const PictureWish& wish);
  void arrived(const PictureWish& wish, Result<FramePicture> picture);

  MainWindowState& window_;
  PictureWish wanted_;
  int width_ = 0;  // of pictures, pixels
  int height_ = 0;
  std::map<double, Picture> kept_;  // of the file and size of wanted_, by seconds; null where there is none
  LastWish<PictureWish, Result<FramePicture>> fetch_;
};

}  // namespace kvo
