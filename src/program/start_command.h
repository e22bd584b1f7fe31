// What a command line asks the window for.
#pragma once

#include "ports/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct StartCommand {
  bool fullScreen = false;           ///< "/FULLSC"
  bool hundredPercent = false;       ///< "/HUNPCT"
  std::string collection;            ///< empty for the default one
  std::vector<std::string> clips;    ///< files and addresses to show, in order
  std::vector<std::string> missing;  ///< full paths of files that were named and are not there
};

/// The text that takes the previews of the converter tool out of the list again.
inline constexpr std::string_view kRemovePreview = "KILLSQUASHPREV";

/// True for the name of a collection: it ends in ".INI" or ".KVO".
bool namesCollection(std::string_view path);

/// Switches stand anywhere, in any case; unknown ones are ignored. A file that is not there is missing,
/// unless its name holds a blank: that may be a text of several. What ends in ".INI" or ".KVO" is the
/// collection to read. Names begin at `workingFolder`.
StartCommand readStartCommand(const std::vector<std::string>& arguments, const Files& files,
                              const std::string& workingFolder = {});

/// The full path of what an argument names. What lies in a network and has no path is no file of the folder,
/// unless there is one of that name.
std::string namedFile(const std::string& argument, const Files& files, const std::string& workingFolder);

/// The command line as one text for the copy that runs already: a line for each argument, files by their full
/// path from `workingFolder` on, line ends in their names told by signs.
std::string handoverText(const std::vector<std::string>& arguments, const std::string& workingFolder,
                         const Files& files);

/// The arguments in such a text.
std::vector<std::string> handedOver(std::string_view text);

}  // namespace kvo
