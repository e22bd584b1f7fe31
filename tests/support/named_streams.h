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
};

}  // namespace kvo::test
