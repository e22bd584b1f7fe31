#include "adapters/media/media_frame_source.h"

#include "base/guarded.h"
#include "media/media_facts.h"

#include <system_error>

namespace kvo {

Result<StreamFacts> MediaFrameSource::facts(const std::string& path) {
  std::error_code failed;
  const auto size = std::filesystem::file_size(path, failed);
  const Stamp stamp{failed ? 0 : size, std::filesystem::last_write_time(path, failed)};
  const auto found = known_.find(path);
  if (!failed && found != known_.end() && found->second.stamp == stamp) return found->second.facts;
  auto facts = guarded([&] { return media::readFacts(path); });
  if (facts && !failed) known_.insert_or_assign(path, Known{stamp, *facts});
  return facts;
}

}  // namespace kvo
