// Streams told by name.
#pragma once

#include "ports/frame_source.h"

#include <map>
#include <string>

namespace kvo::test {

class NamedStreams : public FrameSource {
 public:
  std::map<std::string, StreamFacts> all;

  Result<StreamFacts> facts(const std::string& path) override {
    const auto found = all.find(path);
    if (found == all.end()) return Error{"cannot open " + path};
    return found->second;
  }

  /// Grey, and as bright as the time in seconds.
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override {
    if (!all.contains(path)) return Error{"cannot open " + path};
    const auto bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
    return FramePicture{width, height, std::vector<std::uint8_t>(bytes, static_cast<std::uint8_t>(seconds))};
  }
};

}  // namespace kvo::test
