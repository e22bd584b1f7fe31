// The collections that were opened or saved last, kept with the user.
#pragma once

#include "ports/files.h"
#include "ports/user_store.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvo {

class RecentCollections {
 public:
  static constexpr std::size_t kMax = 9;

  RecentCollections(UserStore& store, const Files& files) : store_(store), files_(files) {}

  /// Full paths, the last one first, kMax at most; without those that are not there now.
  [[nodiscard]] std::vector<std::string> paths() const;

  void remember(const std::string& path);

 private:
  UserStore& store_;
  const Files& files_;
};

}  // namespace kvo
