// Streams told by name, and the pictures in them.
#pragma once

#include "ports/media_contents.h"
#include "ports/picture_counts.h"

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace kvo::test {

class NamedStreams : public MediaContents {
 public:
  std::map<std::string, StreamFacts> all;
  std::mutex held;  ///< while a test has it, facts are waited for

  Result<StreamFacts> facts(const std::string& path) override {
    const std::lock_guard lock(held);
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

/// Told at once; nothing of files that are not here.
class NamedCounts : public PictureCounts {
 public:
  std::map<std::string, std::vector<double>> all;
  /// A count comes home late.
  void count(const std::string& path, std::vector<double> begins) { heard_(path, std::move(begins)); }

  void whenCounted(std::function<void(const std::string&, std::vector<double>)> heard) override {
    heard_ = std::move(heard);
  }
  void want(const std::string& path) override {
    if (all.contains(path)) heard_(path, all.at(path));
  }

 private:
  std::function<void(const std::string&, std::vector<double>)> heard_;
};

}  // namespace kvo::test
