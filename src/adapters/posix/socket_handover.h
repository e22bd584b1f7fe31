// The hand-over by a datagram socket in a folder of the user's own. A lock that ends with its process tells
// whether the first copy lives, so a socket that a crash left behind hinders nobody.
#pragma once

#include "adapters/posix/descriptor.h"
#include "ports/handover.h"

#include <string>

namespace kvo {

class SocketHandover : public Handover {
 public:
  /// `folder` is the user's own and exists; `name` tells program folders apart.
  SocketHandover(const std::string& folder, const std::string& name);
  SocketHandover(const SocketHandover&) = delete;
  SocketHandover& operator=(const SocketHandover&) = delete;
  ~SocketHandover() override;

  bool becomeFirst() override;
  bool send(std::string_view text) override;
  std::optional<std::string> take() override;

 private:
  std::string socketPath_;
  std::string lockPath_;
  Descriptor lock_;
  Descriptor socket_;
};

/// `$XDG_RUNTIME_DIR`, or a folder in the system's temporary one that only this user can enter. Empty when
/// there is none that is safe.
std::string handoverFolder();

/// A name for the socket of a program folder, the same for the same folder.
std::string handoverName(const std::string& programFolder);

}  // namespace kvo
