// Web pages in a window of the program's own, by whatever makes a view for them.
#pragma once

#include "ports/web_pages.h"
#include "windows/web/web_window.h"

#include <memory>

namespace kvo {

class WindowPages : public WebPages {
 public:
  /// `make` gives null where there is nothing to show pages with; it is asked again for the next page.
  WindowPages(WebWindow::Make make, WindowPlace place) : make_(std::move(make)), place_(std::move(place)) {}

  bool show(const std::string& address, bool ahead) override;
  // Whoever heard that it was closed may ask for it: the window is still in the middle of that.
  void close() override {
    if (auto* gone = window_.release()) {
      gone->hide();
      gone->deleteLater();
    }
  }
  void whenClosed(std::function<void()> heard) override { heard_ = std::move(heard); }

 private:
  WebWindow::Make make_;
  WindowPlace place_;
  std::function<void()> heard_;
  std::unique_ptr<WebWindow> window_;
};

}  // namespace kvo
