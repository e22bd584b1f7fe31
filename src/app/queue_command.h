// The queue of renders on the console.
#pragma once

#include "app/command_line.h"
#include "app/session.h"
#include "render/queue/queue_runner.h"

#include <string>

namespace kvo {

/// The folder of the user's queue.
std::string queueFolder(const ProgramFolder& folder);

/// Does what the command line asks of the queue; `engine` is the engine's program. Gives back the exit code
/// of this program.
int runQueue(Session& session, const CommandLine& line, const std::string& engine);

}  // namespace kvo
