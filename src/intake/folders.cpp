#include "intake/folders.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/records/collection.h"
#include "intake/intake_class.h"
#include "intake/media_filters.h"

#include <algorithm>
#include <set>

namespace kvo {
namespace {

// A folder of clips has other files as well; nobody asked for those. What stands for a disc has its tracks
// beside it.
bool isKnownClip(std::string_view path, const std::set<std::string>& filtered) {
  switch (intakeClass(fileNamePart(path))) {
    case IntakeClass::Image:
    case IntakeClass::Picture:
    case IntakeClass::QuickTime:
    case IntakeClass::CdTrack:
      return true;
    case IntakeClass::Media:
    case IntakeClass::Page:
    case IntakeClass::Flash:
      return filtered.contains(wholeExtension(path));
    default:
      return false;
  }
}

}  // namespace

std::vector<std::string> withClipsOfFolders(const std::vector<std::string>& names, const Files& files,
                                            const std::function<bool()>& between) {
  const auto filtered = filteredExtensions();
  std::vector<std::string> all;
  for (const auto& name : names) {
    if (!files.isFolder(name)) {
      all.push_back(name);
      continue;
    }
    const auto first = static_cast<std::ptrdiff_t>(all.size());
    files.eachBelow(name, [&](const std::string& path) {
      if (isKnownClip(path, filtered)) all.push_back(path);
      return between() && all.size() < static_cast<std::size_t>(kMaxClips);
    });
    std::sort(all.begin() + first, all.end(), naturalLess);
  }
  return all;
}

}  // namespace kvo
