// What a command line asks the window for.
#pragma once

#include "platform/files.h"

#include <string>
#include <vector>

namespace kvo {

struct StartCommand {
  bool fullScreen = false;         ///< "/FULLSC"
  bool hundredPercent = false;     ///< "/HUNPCT"
  std::string collection;          ///< empty for the default one
  std::vector<std::string> clips;  ///< files and addresses to show, in order
};

/// Switches stand anywhere, in any case; unknown ones are ignored. A file that is not there is dropped,
/// unless its name holds a blank. What ends in ".INI" or ".KVO" is the collection to read.
StartCommand readStartCommand(const std::vector<std::string>& arguments, const Files& files);

/// The command line as one text for the copy that runs already: a line for each argument, files by their full
/// path from `workingFolder` on.
std::string handoverText(const std::vector<std::string>& arguments, const std::string& workingFolder,
                         const Files& files);

}  // namespace kvo
