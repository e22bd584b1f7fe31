// What the tab Color shows beside a clip as it is: a small picture of it with its colours, made on a thread
// of its own.
#pragma once

#include "editor/tabs/editing.h"
#include "ports/event_loop.h"
#include "ports/last_wish.h"

#include <functional>
#include <memory>
#include <string>

namespace kvo {

class ColourPictures {
 public:
  using Picture = std::shared_ptr<const FramePicture>;

  /// `came` hears when a picture has come. All of it outlives the object.
  ColourPictures(const Editing& editing, EventLoop& loop, std::function<void()> came);

  /// The clip at its Mark-In, with its colours and without its effects, in `width` x `height` pixels. Null
  /// until it has been made, and where it cannot be; while one with other colours is made the last one
  /// stands.
  Picture of(int clipNo, int width, int height);

 private:
  struct Wish {
    std::string look;  // all that the picture comes from
    std::string document;
  };

  const Editing& e_;
  std::function<void()> came_;
  std::string file_;  // of the clip that is shown
  std::string look_;  // that is wanted
  Picture picture_;
  LastWish<Wish, Result<FramePicture>> maker_;
};

}  // namespace kvo
