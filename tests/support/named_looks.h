// Files that have been looked into, told by name.
#pragma once

#include "ports/media_looker.h"

#include <map>
#include <string>
#include <vector>

namespace kvo::test {

class NamedLooks : public MediaLooker {
 public:
  std::map<std::string, LookAnswer> all;
  std::vector<std::string> asked;
  std::function<void()> whileLooking = [] {};

  LookAnswer look(const std::string& path, const std::function<bool()>& stopped) override {
    asked.push_back(path);
    whileLooking();
    if (stopped()) return {LookEnd::Stopped};
    const auto found = all.find(path);
    return found == all.end() ? LookAnswer{LookEnd::Looked, {.errorText = "cannot open " + path}}
                              : found->second;
  }
};

}  // namespace kvo::test
