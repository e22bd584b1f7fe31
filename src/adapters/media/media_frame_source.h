// What a media file holds, by FFmpeg. A file whose facts are known is not opened for them again until it
// changes.
#pragma once

#include "ports/frame_source.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>

namespace kvo {

class MediaFrameSource : public FrameSource {
 public:
  Result<StreamFacts> facts(const std::string& path) override;
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override;

 private:
  // What tells that a file is the one that was looked at.
  struct Stamp {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type time{};
    bool operator==(const Stamp&) const = default;
  };
  struct Known {
    Stamp stamp{};
    StreamFacts facts{};
  };
  std::mutex mutex_;
  std::map<std::string, Known> known_;
};

}  // namespace kvo
