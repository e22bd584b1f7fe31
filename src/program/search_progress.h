// A search of folders, which may be large, as the main window shows it: the window goes on meanwhile, and a
// click ends the search.
#pragma once

#include "ports/event_loop.h"
#include "program/main_window_state.h"

#include <string_view>

namespace kvo {

class SearchProgress {
 public:
  SearchProgress(MainWindowState& window, EventLoop& loop, std::string_view status,
                 std::string_view abortText)
      : progress_(window.progress), loop_(loop), looked_(loop.now()) {
    progress_.status = status;
    progress_.abortText = abortText;
  }
  SearchProgress(const SearchProgress&) = delete;
  SearchProgress& operator=(const SearchProgress&) = delete;
  ~SearchProgress() { progress_ = {}; }

  /// To be asked all the time: looks now and then at what the user does. False once the search is to end.
  bool goesOn() {
    if ((loop_.now() - looked_).count() >= kSlice) {
      loop_.yield();
      looked_ = loop_.now();
    }
    return !stopped();
  }
  [[nodiscard]] bool stopped() const { return progress_.abortClicked; }

 private:
  static constexpr int kSlice = 40;  // milliseconds

  ProgressState& progress_;
  EventLoop& loop_;
  std::chrono::milliseconds looked_;
};

}  // namespace kvo
