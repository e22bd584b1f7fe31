// What a media file holds, by FFmpeg. A file that was looked at once is not opened again.
#pragma once

#include "platform/frame_source.h"

#include <map>

namespace kvo {

class MediaFrameSource : public FrameSource {
 public:
  Result<StreamFacts> facts(const std::string& path) override;

 private:
  std::map<std::string, Result<StreamFacts>> known_;
};

}  // namespace kvo
