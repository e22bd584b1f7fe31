// The end of the program.
#pragma once

#include "program/mailbox.h"

namespace kvo {

class ShutDown {
 public:
  ShutDown(const ProgramParts& parts, Mailbox& mailbox) : parts_(parts), mailbox_(mailbox) {}

  /// Ends the program's work and asks about unsaved changes. False on Cancel, and while another command is
  /// under way, which is asked to stop where it can: the program goes on.
  bool exit();

  /// Hears that the end was asked for while other work runs. May be empty.
  void whenBusy(std::function<void()> heard) { busy_ = std::move(heard); }

 private:
  ProgramParts parts_;
  Mailbox& mailbox_;
  std::function<void()> busy_;
  bool ended_ = false;
};

/// Takes away what compiles and renders leave beside the program.
void deleteWorkFiles(Files& files, const ProgramFolder& folder);

}  // namespace kvo
