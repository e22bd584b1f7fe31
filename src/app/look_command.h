// The program as the process that looks into media files for another copy of it.
#pragma once

#include "ports/processes.h"

#include <string>

namespace kvo {

/// How it is started. `executableFolder` has a separator at its end.
ProcessOrder lookingProcess(const std::string& executableFolder);

/// Reads paths from standard input, each with a byte 0 behind it, and answers each on standard output in the
/// words of look_words.h, until the input ends. It ends with the program that started it as well.
int runLook();

}  // namespace kvo
