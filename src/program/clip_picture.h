// The picture of the clip in hand, fetched by a thread of its own: whoever scrolls through a long list never
// waits for a file. What was asked for last is what counts.
#pragma once

#include "ports/event_loop.h"
#include "program/clip_picture_state.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace kvo {

class ClipPicture {
 public:
  /// `streams` is asked on the other thread; the state is written on the loop's. All outlive the object.
  ClipPicture(FrameSource& streams, EventLoop& loop, ClipPictureState& state);
  ClipPicture(const ClipPicture&) = delete;
  ClipPicture& operator=(const ClipPicture&) = delete;
  /// Waits for the file that is being read.
  ~ClipPicture();

  /// Wants this picture from now on. What is shown stays until it has come, if it is of the same file.
  void want(const PictureWish& wish);

 private:
  void work(const std::stop_token& stop);
  void arrived(const PictureWish& wish, Result<FramePicture> picture);

  FrameSource& streams_;
  EventLoop& loop_;
  ClipPictureState& state_;
  PictureWish wanted_;
  std::mutex mutex_;
  std::condition_variable_any told_;
  std::optional<PictureWish> next_;  // for the other thread
  std::shared_ptr<bool> lives_ = std::make_shared<bool>(true);
  std::jthread thread_;  // begins with the first wish
};

}  // namespace kvo
