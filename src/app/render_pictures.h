// The picture of about the place where a render is, made from its own document on a thread of its own: at
// most two in a second, and never more than a fifth of one core.
#pragma once

#include "ports/event_loop.h"
#include "ports/last_wish.h"
#include "render/render_state.h"

#include <functional>
#include <memory>
#include <string>

namespace kvo {

namespace engine {
class Compositor;
struct Timeline;
}  // namespace engine

class RenderPictures {
 public:
  /// Writes the picture of `state`; `came` hears of it. All of it outlives the object.
  RenderPictures(RenderState& state, EventLoop& loop, std::function<void()> came);
  ~RenderPictures();

  /// The state is another: the place where the movie is now is wished for, when it is time for it.
  void settle();

 private:
  struct Wish {
    std::shared_ptr<const std::string> document;
    double seconds = 0;
  };
  struct Found {
    std::shared_ptr<const FramePicture> picture;  // null where there is none
    std::chrono::milliseconds took{};
  };
  // On the other thread alone.
  struct Film {
    std::shared_ptr<const std::string> document;
    std::unique_ptr<engine::Timeline> timeline;
    std::unique_ptr<engine::Compositor> compositor;
  };
  static Found find(Film& film, const Wish& wish);

  RenderState& state_;
  EventLoop& loop_;
  std::function<void()> came_;
  std::chrono::milliseconds next_{};
  bool isAsked_ = false;
  double shown_ = -1;
  std::shared_ptr<Film> film_;
  LastWish<Wish, Found> maker_;
};

}  // namespace kvo
