// The player as adding sees it, and the guard about the load of a clip that has just been added.
#pragma once

#include "core/telling/error_log.h"
#include "ports/message_boxes.h"

#include <functional>
#include <string>

namespace kvo {

class LoadCheck {
 public:
  LoadCheck() = default;
  LoadCheck(const LoadCheck&) = delete;
  LoadCheck& operator=(const LoadCheck&) = delete;
  virtual ~LoadCheck() = default;

  /// Nothing that follows by itself touches the collection from now on, until a clip is loaded or
  /// nothingAdded() says that none will be: what plays goes on then as before.
  virtual void beforeAdding() = 0;
  virtual void nothingAdded() = 0;

  /// Full path of the file in the player, or empty.
  [[nodiscard]] virtual std::string PlayerGetFileName() const = 0;
};

enum class GuardedLoad {
  Done,
  Refused,  ///< the load failed, and the player goes on: the record has to go
  Fatal,    ///< the player is spoilt: the program has to end, without saving
};

/// Runs `load`, which brings `file` into the player; what that throws ends here, and is told.
GuardedLoad guardLoad(const LoadCheck& player, const std::string& file, const std::function<void()>& load,
                      MessageBoxes& boxes, ErrorLog& log);

}  // namespace kvo
