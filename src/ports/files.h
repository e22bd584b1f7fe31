// The port to the file system: what the program asks about files, and how a file that a user would miss is
// replaced. Paths are byte strings as the system knows them.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvo {

/// The new contents of a file while they are being written. Nothing is seen under the file's name before
/// commit(); a replacement that is destroyed without it, or whose process dies, leaves the name as it was.
class Replacement {
 public:
  Replacement() = default;
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  virtual ~Replacement() = default;

  /// Puts `bytes` at byte position `at`; what lies between the end and `at` reads as zeros.
  virtual Outcome write(std::uint64_t at, std::string_view bytes) = 0;

  /// Bytes so far.
  [[nodiscard]] virtual std::uint64_t size() const = 0;

  /// Brings the contents to the disk and then, in one step, under the file's name.
  virtual Outcome commit() = 0;
};

/// A name that has one holder at a time. It is given back with the object, and when the process dies.
class FileLock {
 public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

struct FileFacts {
  std::uint64_t size = 0;    ///< bytes
  std::int64_t changed = 0;  ///< seconds since the beginning of 1970
  bool readOnly = false;     ///< its permissions let nobody write it
};

class Files {
 public:
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  /// True when a regular file of this name can be looked up.
  [[nodiscard]] virtual bool exists(const std::string& path) const = 0;

  /// Nothing when there is no regular file of this name.
  [[nodiscard]] virtual std::optional<FileFacts> facts(const std::string& path) const = 0;

  /// Calls `each` with the full path of every regular file in a folder and in those below it, in no order,
  /// until it gives back false. What is hidden is left out, and so are folders that a link leads to. Nothing
  /// happens for what is no folder.
  virtual void eachBelow(const std::string& folder,
                         const std::function<bool(const std::string& path)>& each) const = 0;

  /// True when `path` is a folder.
  [[nodiscard]] virtual bool isFolder(const std::string& path) const = 0;

  /// The whole file; fails beyond `limit` bytes.
  [[nodiscard]] virtual Result<std::string> read(const std::string& path, std::uint64_t limit) const = 0;

  /// The first `most` bytes of a file, or all of a shorter one.
  [[nodiscard]] virtual Result<std::string> readHead(const std::string& path, std::size_t most) const = 0;

  /// Begins new contents for `path`, which need not exist; its folder must.
  virtual Result<std::unique_ptr<Replacement>> replace(const std::string& path) = 0;

  /// Adds to the end of a file, made when it is missing.
  virtual Outcome append(const std::string& path, std::string_view bytes) = 0;

  /// Gives a file another name, in place of what bears that name.
  virtual Outcome rename(const std::string& from, const std::string& to) = 0;

  /// True when the file is gone afterwards.
  virtual bool remove(const std::string& path) = 0;

  /// True when there is such a folder and files can be made in it.
  [[nodiscard]] virtual bool mayWriteInto(const std::string& folder) const = 0;

  /// Makes the folder and those above it.
  virtual Outcome makeFolder(const std::string& path) = 0;

  /// Removes a folder with what is in it; one that is missing is no failure.
  virtual Outcome removeFolder(const std::string& path) = 0;

  /// Copies a folder with what is in it, links followed, to a name where nothing is yet; done where there is
  /// something meanwhile. It comes under that name in one step, when all of it is on the disk.
  virtual Outcome copyFolder(const std::string& from, const std::string& to) = 0;

  /// Holds the name `path` among all that ask for it in this way, in this process and in others; waits for
  /// the one that has it. An empty file of that name is made where there is none, and stays.
  virtual Result<std::unique_ptr<FileLock>> lock(const std::string& path) = 0;

  /// True when both names lead to one and the same file.
  [[nodiscard]] virtual bool sameFile(const std::string& a, const std::string& b) const = 0;
};

/// A whole small file in one step.
Outcome writeDurably(Files& files, const std::string& path, std::string_view bytes);

}  // namespace kvo
