#include "app/companions.h"

#include "base/paths.h"

namespace kvo {

std::string placesFile(const std::function<std::string(const char*)>& environment) {
  auto folder = environment("XDG_STATE_HOME");
  if (!folder.starts_with(kSeparator)) {  // the rule for these variables: one that is not absolute is none
    const auto home = environment("HOME");
    if (home.empty()) return {};
    folder = withSeparator(home) + ".local/state";
  }
  return withSeparator(folder) + "KVO5/Places";
}

}  // namespace kvo
