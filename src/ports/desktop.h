// The port to the desktop about the program: its screens, and other programs that show a page.
#pragma once

#include <string>
#include <vector>

namespace kvo {

struct ScreenFacts {
  int width = 0;  ///< pixels
  int height = 0;
  int bitsPerPixel = 0;
  int monitors = 1;
  int textHeight = 0;  ///< of the characters of the desktop's own text, pixels at a scale of 1
};

/// A part of the desktop, in its own pixels, over all screens.
struct ScreenArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const ScreenArea&) const = default;
};

struct Screen {
  std::string name;
  ScreenArea whole;
  ScreenArea available;  ///< without the bars of the desktop
  double factor = 1;     ///< by which the user has things drawn larger
};

class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  [[nodiscard]] virtual ScreenFacts screen() const = 0;
  /// All screens, the first being the main one.
  [[nodiscard]] virtual std::vector<Screen> screens() const = 0;
  virtual void beep() = 0;
  /// The user's folder for videos, or else for documents, or else the home; empty when there is none.
  [[nodiscard]] virtual std::string videosFolder() const { return {}; }
  /// Shows a web address in the user's browser. False when there is none.
  virtual bool openPage(const std::string& address) = 0;
  /// Opens a file, by its full path, with the program that the user has for it. False when there is none.
  virtual bool openFile(const std::string& path) = 0;
};

}  // namespace kvo
