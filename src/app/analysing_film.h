// The film that Frm_Analysing plays while the editor opens.
#pragma once

#include "editor/desk/editor_window_state.h"
#include "editor/preview/newest_picture.h"
#include "editor/tabs/editing.h"
#include "engine/run/engine_player.h"

#include <functional>
#include <memory>

namespace kvo {

class AnalysingFilm {
 public:
  /// `come` is called behind each picture of the film. All of it outlives the object.
  AnalysingFilm(const Editing& editing, AnalysingState& state, EventLoop& loop, std::function<void()> come);

  /// Plays what the state wants to have played, and lets go of it behind that.
  void settle();

 private:
  void begin();

  const Editing& editing_;
  AnalysingState& state_;
  NewestPicture pictures_;
  std::unique_ptr<engine::EnginePlayer> player_;  // while there is a film
  int plays_ = 0;
};

}  // namespace kvo
