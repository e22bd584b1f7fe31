// What the program does without a screen. Each command gives the exit code of the process: 0 done, 1 failed,
// 130 stopped by the user; what went wrong is one line on standard error.
#pragma once

#include "app/command_line.h"
#include "app/console_render.h"
#include "app/session.h"

namespace kvo {

/// Compiles the collection and has the engine, the program `engine`, render it.
int runRender(Session& session, const CommandLine& line, const std::string& engine);

/// What a command line asks of the engine, compiled; without a profile file. Fails with a line.
Result<RenderOrder> renderOrder(Session& session, const CommandLine& line);

/// The bytes of the profile file that a render has of its own; empty where it has none.
std::string ownProfile(const CommandLine& line);

/// Lists the presets of a render.
int runPresets();

int runCheck(Session& session, const CommandLine& line);

int runDocument(Session& session, const CommandLine& line);

}  // namespace kvo
