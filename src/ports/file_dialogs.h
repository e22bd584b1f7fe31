// The port to the dialogs that ask for files.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

struct FileFilter {
  std::string name;      ///< "Movie Collections (*.Ini)", as it is shown
  std::string patterns;  ///< "*.ini *.kvo", blanks between; in any case of letters
};

struct FileQuestion {
  std::string title;
  std::vector<FileFilter> filters;
  std::string folder;      ///< where it starts
  std::string name;        ///< proposed name, for saving
  std::size_t filter = 0;  ///< which of the filters holds at first
  /// For saving: whoever asks about a file that is there is the caller.
  bool mayExist = false;
};

/// What the user has chosen.
struct FileChoice {
  std::vector<std::string> paths;  ///< full; none on Cancel
  std::size_t filter = 0;          ///< which of the filters held at last
};

class FileDialogs {
 public:
  FileDialogs() = default;
  FileDialogs(const FileDialogs&) = delete;
  FileDialogs& operator=(const FileDialogs&) = delete;
  virtual ~FileDialogs() = default;

  /// A full path, or nothing on Cancel.
  virtual std::optional<std::string> open(const FileQuestion& question) = 0;
  /// Any number of files.
  virtual FileChoice openSeveral(const FileQuestion& question) = 0;
  /// A folder, without a separator at its end; of the question the title and where it starts count.
  virtual std::optional<std::string> openFolder(const FileQuestion& question) = 0;
  /// Asks about replacing a file that is there, unless that may exist.
  virtual std::optional<std::string> save(const FileQuestion& question) = 0;
};

}  // namespace kvo
