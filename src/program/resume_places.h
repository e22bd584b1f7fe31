// Where long clips were left, as the user's own file keeps it: the newest first, no more than it has room
// for. A file that has been changed since is another one.
#pragma once

#include "ports/files.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct LeftPlace {
  std::string path;    ///< full path of the clip's file
  FileFacts file;      ///< as it was then
  double seconds = 0;  ///< from its start
};

class ResumePlaces {
 public:
  static constexpr std::size_t kMost = 200;

  /// From the file's text; lines that are none of ours are left out.
  static ResumePlaces read(std::string_view text);
  /// A line for each: seconds, size and time of change of the file, and its path, with tabs between.
  [[nodiscard]] std::string text() const;

  /// Takes the place of what was kept for that path. A path with a line break in it is not kept.
  void keep(LeftPlace place);
  /// True when there was a place for that path.
  bool forget(std::string_view path);
  /// Where this file was left; nothing for one that is not the same any more.
  [[nodiscard]] std::optional<double> find(std::string_view path, const FileFacts& file) const;

 private:
  std::vector<LeftPlace> places_;
};

}  // namespace kvo
