#include "program/recent_collections.h"

#include "base/text.h"

#include <string_view>

namespace kvo {
namespace {

constexpr std::string_view kName = "RecentCollections";  // a path on each line
constexpr std::size_t kMostKept = 30;

}  // namespace

std::vector<std::string> RecentCollections::paths() const {
  std::vector<std::string> paths;
  const auto text = store_.read(kName);
  for (std::string_view rest = text; !rest.empty() && paths.size() < kMax;) {
    if (std::string path(nextLine(rest)); files_.exists(path)) paths.push_back(std::move(path));
  }
  return paths;
}

// What is gone may be on a drive that comes again: it stays until newer ones need the room.

void RecentCollections::remember(const std::string& path) {
  if (path.find('\n') != std::string::npos) return;
  auto text = path;
  const auto before = store_.read(kName);
  std::size_t count = 1;
  for (std::string_view rest = before; !rest.empty() && count < kMostKept;) {
    const auto other = nextLine(rest);
    if (other.empty() || other == path) continue;
    text.append("\n").append(other);
    ++count;
  }
  store_.write(kName, text);
}

}  // namespace kvo
