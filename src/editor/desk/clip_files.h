// The files of the clips, looked into by a thread ahead of the compiles that ask what they hold: a compile
// of many files that are not known yet would hold the window up.
#pragma once

#include "core/records/collection.h"
#include "editor/desk/presumed_files.h"
#include "ports/event_loop.h"

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace kvo {

/// How far a look at the files has come; of no file in all where one is known that had been passed over.
struct LookedSoFar {
  int done = 0;
  int total = 0;
  std::string next;  ///< the file that is looked into now; empty behind the last
};

class ClipFiles {
 public:
  /// `told` hears how far the look has come, on the loop's thread, and at its end of as many as there are.
  /// All of it outlives the object.
  ClipFiles(EventLoop& loop, PresumedFiles& files, std::function<void(const LookedSoFar&)> told);
  ClipFiles(const ClipFiles&) = delete;
  ClipFiles& operator=(const ClipFiles&) = delete;
  /// Waits for the file that is being looked into.
  ~ClipFiles() { *lives_ = false; }

  /// True when all files of the collection have been looked into, or passed over. Else that is under way from
  /// now on.
  bool known(const Collection& collection);

  /// Ends the look at once: the files that it has not come to are passed over. Gives them back, the one that
  /// it is at first.
  std::vector<std::string> giveUp();

  /// A file that was passed over is looked into after all, while it counts as known. Nothing for any other.
  void takeUp(const std::string& path);
  /// None of them counts as known any more.
  void forgetPassedOver();

 private:
  struct Wish {
    std::string path;
    bool isTakenUp = false;
  };

  void look(std::deque<Wish> wishes);
  void work(const std::stop_token& stop);
  std::optional<LookedSoFar> looked(int look, bool isTakenUp);
  void tell(LookedSoFar news, int look);

  EventLoop& loop_;
  PresumedFiles& files_;
  std::function<void(const LookedSoFar&)> told_;
  std::set<std::string> known_;
  std::set<std::string> passedOver_;
  bool looking_ = false;

  std::mutex mutex_;  // guards what follows
  std::deque<Wish> waiting_;
  std::string now_;  // is looked into
  bool working_ = false;
  LookedSoFar soFar_;
  int looks_ = 0;  // that were given up: of an earlier one nothing is told any more

  std::shared_ptr<bool> lives_ = std::make_shared<bool>(true);
  std::jthread thread_;
};

}  // namespace kvo
