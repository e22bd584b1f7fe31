// Files in memory that can fail at the n-th call.
#pragma once

#include "ports/files.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kvo::test {

class MemoryFiles : public Files {
 public:
  std::map<std::string, std::string> all;
  std::set<std::string> unreadable;
  std::set<std::string> unwritable;

  int failedReplaces = 0;  // the number of times that writing a file anew fails from now on
  int failAt = 0;          // the number of the changing call that fails, 0 for none
  int calls = 0;
  mutable int reads = 0;

  void put(std::initializer_list<const char*> paths, const std::string& bytes = "x") {
    for (const auto* path : paths) all[path] = bytes;
  }

  [[nodiscard]] bool exists(const std::string& path) const override { return all.contains(path); }

  /// A file's time is the length of its contents.
  [[nodiscard]] std::optional<FileFacts> facts(const std::string& path) const override {
    const auto found = all.find(path);
    if (found == all.end()) return std::nullopt;
    return FileFacts{found->second.size(), static_cast<std::int64_t>(found->second.size()), false};
  }

  void eachBelow(const std::string& folder,
                 const std::function<bool(const std::string& path)>& each) const override {
    for (const auto& [path, bytes] : all) {
      if (path.starts_with(folder.ends_with("/") ? folder : folder + "/") && !each(path)) return;
    }
  }
  [[nodiscard]] bool isFolder(const std::string& path) const override {
    return !all.contains(path) && std::any_of(all.begin(), all.end(), [&](const auto& file) {
      return file.first.starts_with(path.ends_with("/") ? path : path + "/");
    });
  }

  [[nodiscard]] Result<std::string> read(const std::string& path, std::uint64_t limit) const override {
    const auto found = all.find(path);
    ++reads;
    if (unreadable.contains(path)) return Error{"cannot read " + path + ": Input/output error"};
    if (found == all.end()) return Error{"cannot read " + path + ": No such file or directory"};
    if (found->second.size() > limit) return Error{"cannot read " + path + ": File too large"};
    return found->second;
  }

  [[nodiscard]] Result<std::string> readHead(const std::string& path, std::size_t most) const override {
    auto whole = read(path, std::string::npos);
    return whole ? Result<std::string>(whole->substr(0, most)) : whole;
  }

  Result<std::unique_ptr<Replacement>> replace(const std::string& path) override {
    if (fails() || (failedReplaces > 0 && failedReplaces-- > 0))
      return Error{"cannot write " + path + ": injected"};
    return std::unique_ptr<Replacement>(std::make_unique<InMemory>(*this, path));
  }

  Outcome append(const std::string& path, std::string_view bytes) override {
    if (unwritable.contains(path)) return Error{"cannot write " + path + ": Permission denied"};
    all[path].append(bytes);
    return {};
  }

  Outcome rename(const std::string& from, const std::string& to) override {
    if (fails()) return Error{"cannot rename " + from + ": injected"};
    all[to] = std::move(all[from]);
    all.erase(from);
    unreadable.erase(from);
    return {};
  }

  bool remove(const std::string& path) override { return all.erase(path), true; }

  [[nodiscard]] bool mayWriteInto(const std::string& folder) const override {
    return !unwritable.contains(folder);
  }

  Outcome makeFolder(const std::string& /*path*/) override { return {}; }
  Outcome removeFolder(const std::string& path) override {
    std::erase_if(all, [&](const auto& file) { return file.first.starts_with(path + "/"); });
    return {};
  }
  Outcome copyFolder(const std::string& from, const std::string& /*to*/) override {
    return Error{"cannot copy " + from + ": no folders in memory"};
  }
  Result<std::unique_ptr<FileLock>> lock(const std::string& /*path*/) override {
    return std::make_unique<FileLock>();
  }
  [[nodiscard]] bool sameFile(const std::string& a, const std::string& b) const override { return a == b; }

 private:
  class InMemory : public Replacement {
   public:
    InMemory(MemoryFiles& files, std::string path) : files_(files), path_(std::move(path)) {}
    Outcome write(std::uint64_t at, std::string_view bytes) override {
      if (files_.fails()) return Error{"cannot write " + path_ + ": injected"};
      bytes_.resize(std::max<std::size_t>(bytes_.size(), at + bytes.size()));
      bytes_.replace(at, bytes.size(), bytes);
      return {};
    }
    [[nodiscard]] std::uint64_t size() const override { return bytes_.size(); }
    Outcome commit() override {
      if (files_.fails()) return Error{"cannot replace " + path_ + ": injected"};
      files_.all[path_] = bytes_;
      return {};
    }

   private:
    MemoryFiles& files_;
    std::string path_;
    std::string bytes_;
  };

  bool fails() { return ++calls == failAt; }
};

}  // namespace kvo::test
