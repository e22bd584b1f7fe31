// The picture of the clip in hand, fetched by a thread of its own: whoever scrolls through a long list never
// waits for a file. What was asked for last is what counts.
#pragma once

#include "program/clip_picture_state.h"
#include "program/last_wish.h"

namespace kvo {

class ClipPicture {
 public:
  /// `streams` is asked on the other thread; the state is written on the loop's. All outlive the object,
  /// which waits at its end for the file that is being read.
  ClipPicture(FrameSource& streams, EventLoop& loop, ClipPictureState& state);

  /// Wants this picture from now on. What is shown stays until it has come, if it is of the same file.
  void want(const PictureWish& wish);

 private:
  void arrived(const PictureWish& wish, Result<FramePicture> picture);

  ClipPictureState& state_;
  PictureWish wanted_;
  LastWish<PictureWish, Result<FramePicture>> fetch_;
};

}  // namespace kvo
