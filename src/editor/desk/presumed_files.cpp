#include "editor/desk/presumed_files.h"

#include "core/records/media_kinds.h"

namespace kvo {

Result<StreamFacts> PresumedFiles::facts(const std::string& path) {
  {
    const std::lock_guard lock(mutex_);
    if (passedOver_.contains(path)) {
      const auto kind = mediaClass(path, nullptr);
      return StreamFacts{.hasVideo = kind != MediaClass::Sound,
                         .hasAudio = kind == MediaClass::Sound,
                         .isStill = kind == MediaClass::Still};
    }
  }
  return files_.facts(path);
}

void PresumedFiles::look(const std::string& path) {
  static_cast<void>(files_.facts(path));  // which remembers them
  const std::lock_guard lock(mutex_);
  passedOver_.erase(path);
}

void PresumedFiles::passOver(const std::string& path) {
  const std::lock_guard lock(mutex_);
  passedOver_.insert(path);
}

}  // namespace kvo
