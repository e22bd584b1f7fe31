// The program as the process that makes sketches of media files for another copy of it.
#pragma once

#include "ports/processes.h"

#include <string>

namespace kvo {

/// How it is started. `executableFolder` has a separator at its end.
ProcessOrder sketchingProcess(const std::string& executableFolder);

/// Reads orders from standard input and answers each on standard output in the words of sketch_words.h, until
/// the input ends; keeps what it makes in `folder`. It gives way to all other work of the machine, and ends
/// with the program that started it as well.
int runSketch(const std::string& folder);

}  // namespace kvo
