// A render followed on the console.
#pragma once

#include "app/session.h"
#include "base/exit_codes.h"
#include "render/render_driver.h"

#include <string>

namespace kvo {

/// Has the engine, the program `engine`, make the movie, and tells on the console how far it is and how it
/// ended. A stop signal ends the render. Gives back the exit code of this program.
int renderOnConsole(Session& session, const RenderOrder& order, const std::string& engine);

/// Prints on standard output at once.
void print(const std::string& text);

/// Prints one line on standard error.
void warn(const std::string& text);
int fail(const std::string& text, int code = kExitFailed);

}  // namespace kvo
