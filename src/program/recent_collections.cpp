#include "program/recent_collections.h"

#include "base/text.h"

#include <string_view>

namespace kvo {
namespace {

constexpr std::string_view kName = "RecentCollections";  // a path on each line

}  // namespace

std::vector<std::string> RecentCollections::paths() const {
  std::vector<std::string> paths;
  const auto text = store_.read(kName);
  for (std::string_view rest = text; !rest.empty() && paths.size() < kMax;) {
    if (std::string path(nextLine(rest)); files_.exists(path)) paths.push_back(std::move(path));
  }
  return paths;
}

void RecentCollections::remember(const std::string& path) {
  if (path.find('\n') != std::string::npos) return;
  auto text = path;
  std::size_t count = 1;
  for (const auto& other : paths()) {
    if (other != path && count++ < kMax) text.append("\n").append(other);
  }
  store_.write(kName, text);
}

}  // namespace kvo
