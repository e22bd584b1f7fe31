// The network by its interfaces.
#pragma once

#include "ports/network.h"

namespace kvo {

class PosixNetwork : public Network {
 public:
  [[nodiscard]] bool connected() const override;
};

}  // namespace kvo
