// The port to the few values that belong to the user and not to a collection. Texts by name; every read sees
// what any other process of the user has written.
#pragma once

#include <string>
#include <string_view>

namespace kvo {

class UserStore {
 public:
  UserStore() = default;
  UserStore(const UserStore&) = delete;
  UserStore& operator=(const UserStore&) = delete;
  virtual ~UserStore() = default;

  /// Empty when there is no such value.
  [[nodiscard]] virtual std::string read(std::string_view name) const = 0;
  virtual void write(std::string_view name, std::string_view text) = 0;
};

}  // namespace kvo
