// The files of the clips, looked into by a thread ahead of the compiles that ask what they hold: a compile
// of many files that are not known yet would hold the window up.
#pragma once

#include "core/records/collection.h"
#include "ports/event_loop.h"
#include "ports/frame_source.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <thread>

namespace kvo {

class ClipFiles {
 public:
  /// `told` hears how far the look has come, on the loop's thread, and at its end of as many as there are.
  /// Both outlive the object.
  ClipFiles(EventLoop& loop, FrameSource& streams, std::function<void(int done, int total)> told);
  ClipFiles(const ClipFiles&) = delete;
  ClipFiles& operator=(const ClipFiles&) = delete;
  /// Waits for the file that is being looked into.
  ~ClipFiles() { *lives_ = false; }

  /// True when all files of the collection have been looked into. Else that is under way from now on.
  bool known(const Collection& collection);

 private:
  EventLoop& loop_;
  FrameSource& streams_;
  std::function<void(int, int)> told_;
  std::set<std::string> known_;
  bool looking_ = false;
  std::shared_ptr<bool> lives_ = std::make_shared<bool>(true);
  std::jthread thread_;
};

}  // namespace kvo
