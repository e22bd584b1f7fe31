// Files on a POSIX file system. A replacement is an unnamed file in the target's folder where the file system
// has such (O_TMPFILE), so a process that dies leaves nothing behind; else a named one beside the target.
#pragma once

#include "ports/files.h"

namespace kvo {

class PosixFiles : public Files {
 public:
  [[nodiscard]] bool exists(const std::string& path) const override;
  [[nodiscard]] std::optional<FileFacts> facts(const std::string& path) const override;
  void eachBelow(const std::string& folder,
                 const std::function<bool(const std::string& path)>& each) const override;
  [[nodiscard]] bool isFolder(const std::string& path) const override;
  [[nodiscard]] Result<std::string> read(const std::string& path, std::uint64_t limit) const override;
  [[nodiscard]] Result<std::string> readHead(const std::string& path, std::size_t most) const override;
  Result<std::unique_ptr<Replacement>> replace(const std::string& path) override;
  Outcome append(const std::string& path, std::string_view bytes) override;
  Outcome rename(const std::string& from, const std::string& to) override;
  bool remove(const std::string& path) override;
  [[nodiscard]] bool mayWriteInto(const std::string& folder) const override;
  Outcome makeFolder(const std::string& path) override;
  Outcome removeFolder(const std::string& path) override;
  Outcome copyFolder(const std::string& from, const std::string& to) override;
  Result<std::unique_ptr<FileLock>> lock(const std::string& path) override;
  [[nodiscard]] bool sameFile(const std::string& a, const std::string& b) const override;
};

}  // namespace kvo
