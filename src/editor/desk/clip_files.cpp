#include "editor/desk/clip_files.h"

#include <utility>
#include <vector>

namespace kvo {
namespace {

constexpr int kFilesPerNews = 16;

}  // namespace

ClipFiles::ClipFiles(EventLoop& loop, FrameSource& streams, std::function<void(int, int)> told)
    : loop_(loop), streams_(streams), told_(std::move(told)) {}

bool ClipFiles::known(const Collection& collection) {
  if (looking_) return false;
  std::vector<std::string> paths;
  for (int i = 1; i <= collection.MovieList.count(); ++i) {
    auto path = clipFile(collection.MovieList[i]);
    if (known_.insert(path).second) paths.push_back(std::move(path));
  }
  if (paths.empty()) return true;
  looking_ = true;
  thread_ = std::jthread([this, paths = std::move(paths)](const std::stop_token& stop) {
    const int total = static_cast<int>(paths.size());
    int done = 0;
    for (const auto& path : paths) {
      if (stop.stop_requested()) return;
      static_cast<void>(streams_.facts(path));  // which remembers them
      if (++done % kFilesPerNews != 0 && done != total) continue;
      loop_.post([this, lives = lives_, done, total] {
        if (!*lives) return;
        looking_ = done < total;
        told_(done, total);
      });
    }
  });
  return false;
}

}  // namespace kvo
