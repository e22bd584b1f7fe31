// The port to the dialogs that ask for files.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

struct FileFilter {
  std::string name;      ///< "Movie Collections"
  std::string patterns;  ///< "*.ini *.INI", blanks between
};

struct FileQuestion {
  std::string title;
  std::vector<FileFilter> filters;
  std::string folder;      ///< where it starts
  std::string name;        ///< proposed name, for saving
  std::size_t filter = 0;  ///< which of the filters holds at first
};

class FileDialogs {
 public:
  FileDialogs() = default;
  FileDialogs(const FileDialogs&) = delete;
  FileDialogs& operator=(const FileDialogs&) = delete;
  virtual ~FileDialogs() = default;

  /// A full path, or nothing on Cancel.
  virtual std::optional<std::string> open(const FileQuestion& question) = 0;
  /// Any number of files; none on Cancel.
  virtual std::vector<std::string> openSeveral(const FileQuestion& question) = 0;
  /// Asks about replacing a file that is there.
  virtual std::optional<std::string> save(const FileQuestion& question) = 0;
};

}  // namespace kvo
