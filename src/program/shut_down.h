// The end of the program.
#pragma once

#include "program/mailbox.h"

namespace kvo {

class ShutDown {
 public:
  ShutDown(const ProgramParts& parts, Mailbox& mailbox);

  /// Ends the program's work and asks about unsaved changes. False on Cancel, and while another command is
  /// under way, and where it may not leave: the program goes on. A command that can be stopped is, and the
  /// program ends behind it.
  bool exit();

  /// Hears that the end was asked for while other work runs. May be empty.
  void whenBusy(std::function<void()> heard) { busy_ = std::move(heard); }

  /// Is asked whether the program may end while it could. May be empty.
  void whenLeaving(std::function<bool()> mayLeave) { mayLeave_ = std::move(mayLeave); }

 private:
  void tryAgain();

  ProgramParts parts_;
  Mailbox& mailbox_;
  std::function<void()> busy_;
  std::function<bool()> mayLeave_;
  bool ended_ = false;
  std::unique_ptr<Timer> again_;
};

/// Takes away what compiles and renders leave beside the program.
void deleteWorkFiles(Files& files, const ProgramFolder& folder);

}  // namespace kvo
