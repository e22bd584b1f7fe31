// Names that are held in memory.
#pragma once

#include "ports/name_locks.h"

#include <set>
#include <string>
#include <utility>

namespace kvo::test {

class MemoryLocks : public NameLocks {
 public:
  std::set<std::string> held;

  Result<std::unique_ptr<FileLock>> tryLock(const std::string& path) override {
    if (!held.insert(path).second) return std::unique_ptr<FileLock>();
    return std::unique_ptr<FileLock>(std::make_unique<Held>(*this, path));
  }
  Result<std::unique_ptr<FileLock>> tryMaking(const std::string& path) override {
    return tryLock("making " + path);
  }

 private:
  class Held : public FileLock {
   public:
    Held(MemoryLocks& locks, std::string path) : locks_(locks), path_(std::move(path)) {}
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() override { locks_.held.erase(path_); }

   private:
    MemoryLocks& locks_;
    std::string path_;
  };
};

}  // namespace kvo::test
