// The picture of the clip in hand, fetched by a thread of its own: whoever scrolls through a long list never
// waits for a file. What was asked for last is what counts.
#pragma once

#include "ports/last_wish.h"
#include "program/clip_picture_state.h"
#include "program/main_window_state.h"

#include <optional>

namespace kvo {

class ClipPicture {
 public:
  /// `streams` is asked on the other thread; the state is written on the loop's. All outlive the object,
  /// which waits at its end for the file that is being read.
  ClipPicture(MediaContents& streams, EventLoop& loop, ClipPictureState& state);

  /// Wants this picture from now on; what is shown stays until it has come. Without a path: none, at once.
  void want(const PictureWish& wish);

 private:
  void arrived(const PictureWish& wish, Result<FramePicture> picture);

  ClipPictureState& state_;
  PictureWish wanted_;
  LastWish<PictureWish, Result<FramePicture>> fetch_;
};

/// The row of the clip whose picture is on show: the one in hand, and between two clips still the one that
/// has ended. Null for none.
const ClipRow* rowOnShow(const MainWindowState& state);

/// The picture of that clip that a box of `width` x `height` pixels shows: at `looksAt` seconds, or
/// else where the clip stands. Videos and stills have one; sound, pages and streams have none, and a sign
/// instead.
PictureWish pictureOf(const MainWindowState& state, std::optional<double> looksAt, int width, int height);

/// Whether what is seen is the picture that the engine draws: not while it is out of sight, nor once that of
/// another time has come, if the user `looksAt` one.
[[nodiscard]] bool showsEngine(const MainWindowState& state, bool looksAt);

}  // namespace kvo
