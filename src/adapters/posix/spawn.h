// A child process with its output in pipes.
#pragma once

#include "adapters/posix/descriptor.h"
#include "ports/processes.h"

#include <sys/types.h>

namespace kvo {

struct Child {
  pid_t process = 0;
  bool ownGroup = false;
  Descriptor end;     ///< can be read once it has ended
  Descriptor input;   ///< its standard input; not open where it has none
  Descriptor output;  ///< its standard output
  Descriptor errors;  ///< its standard error; not open where that is shared
};

/// Starts a child that answers to every signal and has only its three standard streams. Fails with a line
/// that names the program.
Result<Child> spawn(const ProcessOrder& order, bool hearErrors);

}  // namespace kvo
