// What stands behind a collection that was kept for the user and not saved: whose changes it has.
#pragma once

#include "ports/files.h"

#include <string>

namespace kvo {

struct KeptName {
  std::string fullPath{};  ///< of the collection's own file; empty for none
  bool isPortable = false;
};

/// The section that tells it, without its last line end. A path that does not fit on a line is left out.
std::string keptText(const KeptName& kept);

/// The section at the end of a file. Nothing is known of a file without it.
KeptName keptName(const Files& files, const std::string& path);

}  // namespace kvo
