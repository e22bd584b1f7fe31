// Which files of the open collection are gone, and come back: looked at again and again by a thread, as a
// disk that is slow to answer must hold no window up.
#pragma once

#include "ports/event_loop.h"
#include "ports/files.h"
#include "ports/last_wish.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kvo {

class FileWatch {
 public:
  using Paths = std::set<std::string>;

  /// `wanted` gives the files that are to be there; `told` hears, on the loop's thread, of those that are not
  /// each time they are others. `files` is asked on the other thread. All of it outlives the object.
  FileWatch(EventLoop& loop, const Files& files, std::function<Paths()> wanted,
            std::function<void(const Paths&)> told);

  /// Looks now and from now on, or no more: then nothing counts as missing.
  void watch(bool on);

 private:
  void look();

  std::function<Paths()> wanted_;
  std::function<void(const Paths&)> told_;
  Paths missing_;
  std::unique_ptr<Timer> timer_;
  LastWish<Paths, Paths> looks_;
};

}  // namespace kvo
