// The queue of renders in a folder of its own, from where every copy of the program reads it:
//   Queue.txt    the jobs
//   N.xtl        the document of job N, as it was when the job was added
//   N.prx        the profile file of one that has one of its own
#pragma once

#include "ports/files.h"
#include "render/queue/render_queue.h"

#include <functional>
#include <string>

namespace kvo {

class QueueStore {
 public:
  QueueStore(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

  /// Empty where there is none yet.
  [[nodiscard]] Result<RenderQueue> read() const;

  /// Reads it, has it changed, and writes it again, with nobody else in between. What `change` fails with
  /// leaves it as it was.
  Outcome change(const std::function<Outcome(RenderQueue&)>& change);

  /// Adds a job with copies of its document and of `profile`, the bytes of a profile file, if any. Gives its
  /// number.
  Result<int> add(const std::string& title, const RenderOrder& order, const std::string& profile);

  /// The order of a job with its document.
  [[nodiscard]] Result<RenderOrder> orderOf(const QueueJob& job) const;

  /// Removes the copies of a job that is no more.
  void forget(int number);

  /// Whoever holds it makes the jobs.
  [[nodiscard]] std::string runnerLock() const { return folder_ + "/Runner.lock"; }

 private:
  [[nodiscard]] std::string beside(int number, const char* ending) const;

  Files& files_;
  std::string folder_;
};

}  // namespace kvo
