// The port to a window of the program's own that shows web pages. It may not be there: pages are the
// business of the desktop's browser then.
#pragma once

#include <functional>
#include <string>

namespace kvo {

class WebPages {
 public:
  WebPages() = default;
  WebPages(const WebPages&) = delete;
  WebPages& operator=(const WebPages&) = delete;
  virtual ~WebPages() = default;

  /// Shows an address, or a file by its full path, in place of the page before. With `ahead` the window
  /// stands ahead of the program's others, which cannot be reached meanwhile. False when there is no such
  /// window here. Returns at once.
  virtual bool show(const std::string& address, bool ahead) = 0;
  /// Takes the window away; nobody is told.
  virtual void close() = 0;
  /// Heard on the program's thread when the user has closed the window.
  virtual void whenClosed(std::function<void()> heard) = 0;
};

/// Stands where nothing can show pages.
class NoWebPages : public WebPages {
 public:
  bool show(const std::string& /*address*/, bool /*ahead*/) override { return false; }
  void close() override {}
  void whenClosed(std::function<void()> /*heard*/) override {}
};

}  // namespace kvo
