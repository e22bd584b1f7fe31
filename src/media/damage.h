// What could not be decoded of the files of a movie, so that the user can be told.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace kvo::media {

/// What is missing in a hole.
enum class Lost { Picture, Sound };

/// A hole in a file: the picture ahead of it stands, or the sound is silent, from `from` to `to`, in seconds
/// after the file's start.
struct Damage {
  std::string path;
  Lost lost = Lost::Picture;
  double from = 0;
  double to = 0;
  bool operator==(const Damage&) const = default;
};

/// Filled by many readers on many threads. Holes of a kind in a file that touch are one.
class DamageList {
 public:
  void add(const Damage& hole);
  /// By file, then by kind, then by time.
  [[nodiscard]] std::vector<Damage> all() const;

 private:
  mutable std::mutex mutex_;
  std::vector<Damage> holes_;
};

}  // namespace kvo::media
