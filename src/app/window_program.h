// The program with its window.
#pragma once

#include "base/paths.h"

#include <string>
#include <vector>

namespace kvo {

/// True when there is a display to show a window on.
bool hasDisplay();

/// Runs until the user ends it; the exit code of the process. `argc` and `argv` are those of main, whose
/// words about the display Qt takes out. `placesFile` keeps where the user left long clips, `cacheFolder`
/// what may go at any time; empty keeps nothing there.
int runWindow(int argc, char** argv, const ProgramFolder& folder, const std::string& executableFolder,
              const std::string& placesFile, const std::string& cacheFolder);

/// Shows the widgets that windows are made of, until the user closes them.
int runGallery(int argc, char** argv);

}  // namespace kvo
