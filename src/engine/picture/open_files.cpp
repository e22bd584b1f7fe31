#include "engine/picture/open_files.h"

#include "base/guarded.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kvo::engine {
namespace {

using media::VideoReader;

// What goes wrong is told to whoever asks the reader again.
Result<VideoReader> readyAt(Result<VideoReader> reader, double seconds) {
  if (reader) static_cast<void>(reader->frameAt(seconds));
  return reader;
}

}  // namespace

std::list<OpenFiles::Rests>::iterator OpenFiles::resting(const std::string& path) {
  return std::ranges::find(resting_, path, &Rests::path);
}

void OpenFiles::expect(const std::string& path, int threads, double seconds) {
  if (coming_.contains(path)) return;
  std::optional<VideoReader> here;
  if (const auto found = resting(path); found != resting_.end()) {
    here = std::move(found->reader);
    resting_.erase(found);
  }
  coming_[path] = std::async(std::launch::async, [path, threads, seconds, here = std::move(here)]() mutable {
    return guarded([&]() -> Result<VideoReader> {
      return readyAt(here ? Result<VideoReader>(std::move(*here)) : VideoReader::open(path, threads),
                     seconds);
    });
  });
}

Result<VideoReader> OpenFiles::take(const std::string& path, int threads, media::DamageList* damage) {
  if (const auto expected = coming_.find(path); expected != coming_.end()) {
    auto ready = std::move(expected->second);
    coming_.erase(expected);
    return ready.get();
  }
  const auto found = resting(path);
  if (found == resting_.end()) return VideoReader::open(path, threads, damage);
  auto reader = std::move(found->reader);
  resting_.erase(found);
  return reader;
}

void OpenFiles::give(const std::string& path, VideoReader reader) {
  resting_.push_front({path, std::move(reader)});
  if (resting_.size() > kept_) resting_.pop_back();
}

void OpenFiles::clear() {
  coming_.clear();  // waits for them
  resting_.clear();
}

}  // namespace kvo::engine
