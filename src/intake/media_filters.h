// The kinds of files that the dialog which adds media offers, and what they take in.
#pragma once

#include "ports/file_dialogs.h"

#include <set>
#include <string>
#include <vector>

namespace kvo {

/// The filters in their order. The first three take in all that is known of films, of sound and of stills.
std::vector<FileFilter> mediaFilters();

/// The extensions, in capitals, that a filter names.
std::set<std::string> filteredExtensions();

}  // namespace kvo
