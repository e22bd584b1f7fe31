// Keeps what has not been saved beside the program, so that neither a crash nor a kill costs more than the
// last moments. The user's own file is never touched by it. Looks once a second; a copy is printed and
// written on a thread of its own.
#pragma once

#include "core/records/collection.h"
#include "core/telling/error_log.h"
#include "ports/event_loop.h"
#include "ports/files.h"
#include "ports/last_wish.h"
#include "ports/message_boxes.h"
#include "program/collection_commands.h"
#include "program/main_window_state.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

class Autosave {
 public:
  struct Parts {
    Files& files;
    MessageBoxes& boxes;
    EventLoop& loop;
    const ProgramFolder& folder;
    ErrorLog& log;
    KVO2& settings;
    Collection& collection;
    MainWindowState& window;
    CollectionCommands& commands;
  };
  /// All of it outlives the object.
  explicit Autosave(const Parts& parts);

  /// Asks what is to become of what an earlier run has left, where there is anything: it is opened, counting
  /// as changed, or put aside with ".old" behind its name, ".old2" where that is taken. Behind that changes
  /// are kept from now on.
  void begin();

  /// The program ends, and whatever was to be saved has been: nothing is left behind.
  void end();

 private:
  // All that is written, apart from the records that go on being edited.
  struct Copy {
    Collection collection;
    KVO2 settings;
  };
  using Wish = std::shared_ptr<Copy>;

  void offer();
  void look();
  [[nodiscard]] bool changed();
  [[nodiscard]] Wish copy() const;
  [[nodiscard]] Outcome write(Copy& copy) const;

  Parts parts_;
  const std::string path_;
  std::unique_ptr<Timer> timer_;
  std::unique_ptr<LastWish<Wish, Outcome>> writer_;
  bool isThere_ = false;  // the file
  bool failed_ = false;   // the last write, which has been logged
  std::optional<std::uint64_t> revision_;
  std::vector<std::string> preferences_;
};

}  // namespace kvo
