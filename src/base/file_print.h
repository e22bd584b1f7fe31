// The text of a file that is put together by prints: each print ends in a CR LF of its own, behind whatever
// line ends the printed text has.
#pragma once

#include "base/text.h"

#include <string>
#include <string_view>

namespace kvo {

class FilePrint {
 public:
  void print(std::string_view text) { bytes_.append(text).append(kCrLf); }

  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

}  // namespace kvo
