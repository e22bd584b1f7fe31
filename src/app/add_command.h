// Clips added to a collection without a screen.
#pragma once

#include "app/command_line.h"
#include "app/session.h"

#include <string>

namespace kvo {

/// Adds the files, folders and addresses of the line to its collection, which is begun where there is none,
/// and saves it. `programs` is the folder of the program that looks into files, and of the probe. What was
/// refused is told on standard error; the exit code is 1 then, and what could be added is saved all the same.
int runAdd(Session& session, const CommandLine& line, const std::string& programs);

}  // namespace kvo
