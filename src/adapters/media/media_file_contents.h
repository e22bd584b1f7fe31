// What a media file holds, by FFmpeg. A file whose facts are known is not opened for them again until it
// changes.
#pragma once

#include "ports/media_contents.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace kvo {

class MediaFileContents : public MediaContents {
 public:
  Result<StreamFacts> facts(const std::string& path) override;
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override;

  /// What somebody else has found out of a file as it is now.
  void learn(const std::string& path, const StreamFacts& facts);
  /// What is known now, as text for a later run. `maker` says who found it out.
  [[nodiscard]] std::string known(std::string_view maker);
  /// Takes such a text; of another maker's nothing, nor what makes no sense. What is known already stays.
  void remember(std::string_view text, std::string_view maker);
  /// Something is known that has not been remembered.
  [[nodiscard]] bool hasNews();

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

  static std::optional<Stamp> stampOf(const std::string& path);
  void take(const std::string& path, const Stamp& stamp, const StreamFacts& facts);

  std::mutex mutex_;
  std::map<std::string, Known> known_;
  bool hasNews_ = false;
};

}  // namespace kvo
