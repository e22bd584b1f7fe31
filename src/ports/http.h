// The port to texts on the web.
#pragma once

#include "base/result.h"

#include <cstddef>
#include <functional>
#include <string>

namespace kvo {

class Http {
 public:
  using Heard = std::function<void(Result<std::string> text)>;

  Http() = default;
  Http(const Http&) = delete;
  Http& operator=(const Http&) = delete;
  virtual ~Http() = default;

  /// Asks for what is at an address (http, https) and returns at once; `heard` is told the first `most` bytes
  /// of it through the event loop, or, within about ten seconds, a line that says why there are none. Of
  /// several that are asked for in a row only the last is sure to be heard of.
  virtual void get(const std::string& address, std::size_t most, Heard heard) = 0;
};

}  // namespace kvo
