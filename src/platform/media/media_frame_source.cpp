#include "platform/media/media_frame_source.h"

#include "media/media_facts.h"

namespace kvo {

Result<StreamFacts> MediaFrameSource::facts(const std::string& path) {
  const auto found = known_.find(path);
  if (found != known_.end()) return found->second;
  return known_.emplace(path, media::readFacts(path)).first->second;
}

}  // namespace kvo
