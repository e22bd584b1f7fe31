// What comes from outside while the program runs: the command lines of other copies, and files that the user
// drops or chooses.
#pragma once

#include "core/telling/error_log.h"
#include "intake/load_check.h"
#include "program/intro.h"
#include "program/start_command.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

class Mailbox {
 public:
  Mailbox(const ProgramParts& parts, Intro& intro);

  /// Who plays what is handed over.
  void transport(TransportCommands& transport) { transport_ = &transport; }

  /// What stands about the load of clips that have been added. `endProgram` does not save.
  struct Guard {
    LoadCheck& player;
    ErrorLog& log;
    std::function<void()> endProgram;
  };
  void guard(Guard guard) { guard_.emplace(std::move(guard)); }

  /// From now on what other copies hand over is taken, five times a second. Their file names begin at
  /// `workingFolder`.
  void open(const std::string& workingFolder);
  void close() { timer6_->stop(); }

  /// Files that the user chooses: a collection alone takes the place of the one that is open, unsaved changes
  /// being asked about; else all are added in this order, ahead of clip `before` or, for 0, at the end: where
  /// music closes a list of pictures, new pictures go ahead of it and new music behind. Of a folder the clips
  /// in it are. What lies in a network and has no path is refused.
  void takeFiles(const std::vector<std::string>& paths, int before = 0);

  /// Files that the user drops: the same in the order of names, as a file manager has none.
  void takeDropped(std::vector<std::string> paths, int before = 0);

  /// Files for the movie: what has a picture ahead of clip `before`, the music at the end, also that of
  /// folders.
  void takeForMovie(const std::vector<std::string>& paths, int before);

  /// Tells of files that were named and are not there, in one box.
  void tellMissing(const std::vector<std::string>& paths);

  /// An address that the user types, or a full path.
  void takeAddress(const std::string& address, const AddManner& manner);

 private:
  void look();
  void takeHandover(const std::string& text);
  struct Place {
    int before = 0;        // this clip; 0 at the end
    bool isMovie = false;  // its music stands behind all pictures
  };
  void takePaths(const std::vector<std::string>& paths, const Place& place);
  bool take(const StartCommand& command, Place place, const AddManner& manner = {});
  std::vector<std::string> clipsOf(const std::vector<std::string>& names);
  void tellEmpty(const std::vector<std::string>& names, const std::vector<std::string>& clips);
  bool show(const CommandPass& pass);

  ProgramParts parts_;
  Intro& intro_;
  TransportCommands* transport_ = nullptr;
  std::optional<Guard> guard_;
  std::string workingFolder_;
  std::unique_ptr<Timer> timer6_;
};

}  // namespace kvo
