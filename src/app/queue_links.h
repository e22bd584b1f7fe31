// The queue of renders in the windows: what they show of it, and what their keys do to it.
#pragma once

#include "app/session.h"
#include "ports/desktop.h"
#include "program/main_window_state.h"
#include "render/queue/queue_runner.h"
#include "render/queue_keys.h"
#include "render/queue_state.h"

#include <functional>
#include <vector>

namespace kvo {

class QueueLinks {
 public:
  struct Parts {
    MainWindowState& window;
    Session& session;
    QueueStore& store;
    QueueRunner& runner;
    Desktop& desktop;
    std::function<void(const std::string& movie)> view;  ///< plays it
    std::function<void()> draw;                          ///< all windows
  };
  /// All of it outlives the object.
  explicit QueueLinks(const Parts& parts) : parts_(parts) {}

  [[nodiscard]] const QueueState& state() const { return state_; }

  /// A row of Lst_Queue, and what is done to it.
  void choose(int row);
  /// Pauses it, has it go on, or shows its movie.
  void act();
  void openFolder();
  void remove();
  /// Those that are done.
  void clear();
  /// Its place from 1 on; behind the last means there.
  void move(int place);

  /// Whether the program may end now. Asks where that loses what is made of a movie.
  [[nodiscard]] bool mayLeave();

  /// The window of the queue.
  void show();
  void hide();

  /// Behind each change of the queue, and each look at it.
  void changed();

 private:
  [[nodiscard]] const QueuedRow* chosen() const { return chosenRow(state_); }
  [[nodiscard]] std::string movie() const;
  void say(const std::string& text);
  [[nodiscard]] int rowAmong(const std::vector<QueuedRow>& rows) const;
  void tell(const Outcome& done);

  Parts parts_;
  QueueState state_;
};

}  // namespace kvo
