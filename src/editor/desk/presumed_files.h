// What the files of the clips hold, as the editor asks for it: of one that the user would not wait for it is
// taken from the name, so nothing that asks waits for it either.
#pragma once

#include "ports/media_contents.h"

#include <mutex>
#include <set>
#include <string>

namespace kvo {

class PresumedFiles : public MediaContents {
 public:
  /// `files` outlives the object.
  explicit PresumedFiles(MediaContents& files) : files_(files) {}

  /// From any thread, as all of it. A file that was passed over has a picture or sound by its name, and no
  /// sound beside a picture; sizes, rates and lengths are not known.
  Result<StreamFacts> facts(const std::string& path) override;
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override {
    return files_.frame(path, seconds, width, height);
  }

  /// Looks into a file whatever was said of it; from then on it is not passed over.
  void look(const std::string& path);
  void passOver(const std::string& path);

 private:
  MediaContents& files_;
  std::mutex mutex_;
  std::set<std::string> passedOver_;
};

}  // namespace kvo
