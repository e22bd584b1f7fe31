// The queue of renders in a folder of its own, from where every copy of the program reads it:
//   Queue.txt    the jobs
//   Share.txt    how far the one is that is being made: lines of its number and share, the last one counts
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
  /// `tell` hears a line that the user is to know.
  QueueStore(Files& files, std::string folder, std::function<void(const std::string& line)> tell)
      : files_(files), folder_(std::move(folder)), tell_(std::move(tell)) {}

  /// Empty where there is none yet. Fails where the file is none of a queue.
  [[nodiscard]] Result<RenderQueue> read() const;

  /// Reads it, has it changed, and writes it again, with nobody else in between. What `change` fails with
  /// leaves it as it was. A file that is none of a queue is kept under another name, which is told.
  Outcome change(const std::function<Outcome(RenderQueue&)>& change);

  /// Adds a job with copies of its document and of `profile`, the bytes of a profile file, if any. Gives its
  /// number. One in one piece keeps nothing before it stands. Fails, too, where its output's folder cannot be
  /// written, and as addJob does.
  Result<int> add(const std::string& title, const RenderOrder& order, const std::string& profile,
                  bool isInOnePiece = false);

  /// The order of a job with its document.
  [[nodiscard]] Result<RenderOrder> orderOf(const QueueJob& job) const;

  /// Notes how far the job is that is being made, 0 to 1, for whoever looks; 0 begins with it. That is quick,
  /// waits for nobody, and may be lost in a power cut.
  void tellShare(int number, double share);

  /// Removes the copies of a job that is no more.
  void forget(int number);

  /// Whoever holds it makes the jobs.
  [[nodiscard]] std::string runnerLock() const { return folder_ + "/Runner.lock"; }

 private:
  [[nodiscard]] std::string beside(int number, const char* ending) const;

  Outcome keepForeign();
  [[nodiscard]] int lastNumber() const;
  [[nodiscard]] double shareOf(const QueueJob& job) const;

  Files& files_;
  std::string folder_;
  std::function<void(const std::string& line)> tell_;
};

}  // namespace kvo
