// Folders that are added: the clips in them.
#pragma once

#include "ports/files.h"

#include <functional>
#include <string>
#include <vector>

namespace kvo {

/// The names with the clips of a folder, and of those below it, in the place of each that is a folder: what
/// the filters of the dialog name and the program takes, in the order in which people count. `between` is
/// called all the time; it gives back false to end the search.
std::vector<std::string> withClipsOfFolders(const std::vector<std::string>& names, const Files& files,
                                            const std::function<bool()>& between);

}  // namespace kvo
