// The end of the program.
#pragma once

#include "program/mailbox.h"

namespace kvo {

class ShutDown {
 public:
  ShutDown(const ProgramParts& parts, Intro& intro, Mailbox& mailbox)
      : parts_(parts), intro_(intro), mailbox_(mailbox) {}

  /// Ends the program's work and asks about unsaved changes. False on Cancel, and while another command is
  /// under way, which is asked to stop: the program goes on.
  bool exit();

 private:
  ProgramParts parts_;
  Intro& intro_;
  Mailbox& mailbox_;
  bool ended_ = false;
};

/// Takes away what compiles and renders leave beside the program.
void deleteWorkFiles(Files& files, const ProgramFolder& folder);

}  // namespace kvo
