// How the main window shows that clips are added, and shows them in its list.
#pragma once

#include "intake/intake_host.h"
#include "ports/desktop.h"
#include "ports/event_loop.h"
#include "program/clip_list.h"
#include "program/gathered_boxes.h"

#include <functional>
#include <string>
#include <utility>

namespace kvo {

class IntakeWindow : public IntakeHost {
 public:
  struct Parts {
    MainWindowState& window;
    const KVO2& settings;
    const Collection& collection;
    EventLoop& loop;
    ClipList& list;
    Desktop& desktop;
    GatheredBoxes& refusals;
  };
  explicit IntakeWindow(const Parts& parts) : parts_(parts) {}

  void analysing(int number, int total, const std::string& name) override;
  bool stopped() override { return parts_.window.progress.abortClicked; }
  void analysed() override;
  void added(int number) override;
  bool showInViewer(const std::string& file) override { return parts_.desktop.openFile(file); }

  /// What goes on when a clip, by its number, has joined.
  void whenJoined(std::function<void(int number)> work) { whenJoined_ = std::move(work); }

 private:
  Parts parts_;
  int last_ = 0;  // clip that has joined
  std::function<void(int)> whenJoined_ = [](int) {};
};

}  // namespace kvo
