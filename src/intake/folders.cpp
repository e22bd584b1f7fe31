#include "intake/folders.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/records/collection.h"
#include "core/records/media_kinds.h"
#include "intake/intake_class.h"

#include <algorithm>

namespace kvo {
namespace {

// A folder of clips has other files as well; nobody asked for those.
bool isKnownClip(std::string_view path) {
  const auto name = fileNamePart(path);
  switch (intakeClass(name)) {
    case IntakeClass::Image:
    case IntakeClass::Picture:
    case IntakeClass::QuickTime:
    case IntakeClass::CdTrack:
      return true;
    case IntakeClass::Media: {
      const auto* kind = mediaKind(name);
      return kind != nullptr && kind->canBeInMovie;
    }
    default:
      return false;
  }
}

}  // namespace

std::vector<std::string> withClipsOfFolders(const std::vector<std::string>& names, const Files& files,
                                            const std::function<bool()>& between) {
  std::vector<std::string> all;
  for (const auto& name : names) {
    if (!files.isFolder(name)) {
      all.push_back(name);
      continue;
    }
    const auto first = static_cast<std::ptrdiff_t>(all.size());
    files.eachBelow(name, [&](const std::string& path) {
      if (isKnownClip(path)) all.push_back(path);
      return between() && all.size() < static_cast<std::size_t>(kMaxClips);
    });
    std::sort(all.begin() + first, all.end(), naturalLess);
  }
  return all;
}

}  // namespace kvo
