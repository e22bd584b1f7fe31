// The port to the desktop about the program: its screen, and other programs that show a page.
#pragma once

#include <string>

namespace kvo {

struct ScreenFacts {
  int width = 0;  ///< pixels
  int height = 0;
  int bitsPerPixel = 0;
  int monitors = 1;
};

class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  [[nodiscard]] virtual ScreenFacts screen() const = 0;
  /// The user's folder for videos; empty when there is none.
  [[nodiscard]] virtual std::string videosFolder() const { return {}; }
  /// Shows a web address in the user's browser. False when there is none.
  virtual bool openPage(const std::string& address) = 0;
};

}  // namespace kvo
