// The per-user values in memory.
#pragma once

#include "ports/user_store.h"

#include <map>
#include <string>
#include <string_view>

namespace kvo::test {

class MemoryStore : public UserStore {
 public:
  mutable std::map<std::string, std::string, std::less<>> all;
  [[nodiscard]] std::string read(std::string_view name) const override {
    const auto found = all.find(name);
    return found == all.end() ? std::string() : found->second;
  }
  void write(std::string_view name, std::string_view text) override { all[std::string(name)] = text; }
};

}  // namespace kvo::test
