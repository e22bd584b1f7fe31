// Temporary folders that lead nowhere, for files in memory.
#pragma once

#include "ports/temporary_folders.h"

#include <string>

namespace kvo::test {

class MemoryFolders : public TemporaryFolders {
 public:
  int standing = 0;
  std::string refusal;  // why none can be made

  Result<std::unique_ptr<TemporaryFolder>> make() override {
    if (!refusal.empty()) return Error{refusal};
    return std::unique_ptr<TemporaryFolder>(std::make_unique<Folder>(standing));
  }
  void sweep() override {}

 private:
  class Folder : public TemporaryFolder {
   public:
    explicit Folder(int& standing) : standing_(standing) { ++standing_; }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() override { --standing_; }
    [[nodiscard]] const std::string& path() const override { return path_; }

   private:
    int& standing_;
    std::string path_ = "/tmp/kvo";
  };
};

}  // namespace kvo::test
