// What is known of media files, kept in the user's cache folder from one run to the next.
#pragma once

#include "adapters/media/media_file_contents.h"
#include "ports/files.h"
#include "ports/media_looker.h"

#include <string>

namespace kvo {

/// Takes what an earlier run has kept. Nothing where there is none.
void rememberFiles(MediaFileContents& streams, const Files& files, const std::string& cacheFolder);

/// Keeps what is known now. False where it cannot; it is found out again then.
bool keepFiles(MediaFileContents& streams, Files& files, const std::string& cacheFolder);

/// Lets `streams` know what a look into a file has found.
class TellingLooker : public MediaLooker {
 public:
  /// Both outlive the object.
  TellingLooker(MediaLooker& looker, MediaFileContents& streams) : looker_(looker), streams_(streams) {}
  LookAnswer look(const std::string& path, const std::function<bool()>& stopped) override {
    auto answer = looker_.look(path, stopped);
    if (answer.end == LookEnd::Looked && answer.look.errorText.empty())
      streams_.learn(path, answer.look.facts);
    return answer;
  }

 private:
  MediaLooker& looker_;
  MediaFileContents& streams_;
};

}  // namespace kvo
