// What comes from outside while the program runs: the command lines of other copies, and files that the user
// drops or chooses.
#pragma once

#include "program/intro.h"
#include "program/start_command.h"

#include <memory>
#include <string>
#include <vector>

namespace kvo {

class Mailbox {
 public:
  Mailbox(const ProgramParts& parts, Intro& intro);

  /// Who plays what is handed over.
  void transport(TransportCommands& transport) { transport_ = &transport; }

  /// From now on what other copies hand over is taken, five times a second. Their file names begin at
  /// `workingFolder`.
  void open(const std::string& workingFolder);
  void close() { timer6_->stop(); }

  /// Files that the user drops or chooses: a collection takes the place of the one that is open, unsaved
  /// changes being asked about; everything else is added in the order of names, ahead of clip `before` or,
  /// for 0, at the end.
  void takeFiles(const std::vector<std::string>& paths, int before = 0);

 private:
  void look();
  void takeHandover(const std::string& text);
  void take(const StartCommand& command, int before = 0);
  void add(const std::vector<std::string>& clips);

  ProgramParts parts_;
  Intro& intro_;
  TransportCommands* transport_ = nullptr;
  std::string workingFolder_;
  std::unique_ptr<Timer> timer6_;
};

}  // namespace kvo
