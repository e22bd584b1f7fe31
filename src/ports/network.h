// The port to the question whether the machine is on a network at all.
#pragma once

namespace kvo {

class Network {
 public:
  Network() = default;
  Network(const Network&) = delete;
  Network& operator=(const Network&) = delete;
  virtual ~Network() = default;

  /// True when anything but this machine may be reached.
  [[nodiscard]] virtual bool connected() const = 0;
};

}  // namespace kvo
