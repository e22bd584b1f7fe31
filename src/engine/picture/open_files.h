// Video files that are open ahead of their turn, or still: for the clip that comes next, and for the next
// timeline of the same clips. Opening a file and finding the place in it is what takes longest.
#pragma once

#include "base/result.h"
#include "media/damage.h"
#include "media/video_reader.h"

#include <cstddef>
#include <future>
#include <list>
#include <map>
#include <string>

namespace kvo::engine {

class OpenFiles {
 public:
  /// Keeps so many files that nobody needs now.
  explicit OpenFiles(std::size_t kept) : kept_(kept) {}

  /// A file will be wanted soon, from the place `seconds` on: another thread makes it ready.
  void expect(const std::string& path, int threads, double seconds);

  /// The file for one who shows it from now on. Waits for what is being made ready; opens what is not here.
  Result<media::VideoReader> take(const std::string& path, int threads, media::DamageList* damage);

  /// Takes a file back.
  void give(const std::string& path, media::VideoReader reader);

  /// Closes all, also what is being made ready.
  void clear();

 private:
  struct Rests {
    std::string path;
    media::VideoReader reader;
  };

  [[nodiscard]] std::list<Rests>::iterator resting(const std::string& path);

  std::size_t kept_;
  std::list<Rests> resting_;  // the one given last is the first
  std::map<std::string, std::future<Result<media::VideoReader>>> coming_;
};

}  // namespace kvo::engine
