// The per-user values in a file of the user's settings folder, opened anew for each call so that what another
// copy wrote a moment ago counts.
#pragma once

#include "ports/user_store.h"

namespace kvo {

class SettingsStore : public UserStore {
 public:
  [[nodiscard]] std::string read(std::string_view name) const override;
  void write(std::string_view name, std::string_view text) override;
};

}  // namespace kvo
