// Makes the jobs of the queue one behind the other while the program does other things. Of all copies of the
// program one makes them; what another copy does to the queue is seen within half a second.
#pragma once

#include "ports/name_locks.h"
#include "render/awake.h"
#include "render/queue/queue_store.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kvo {

class QueueRunner {
 public:
  struct Ports {
    QueueStore& store;
    NameLocks& locks;
    RenderDriver::Ports engine;
    /// Nobody else's. Null where no desktop is to know of it.
    LongWork* work = nullptr;
  };

  /// `changed` is called behind each change of what is seen here, and is not to destroy the runner.
  QueueRunner(const Ports& ports, std::function<void()> changed);
  QueueRunner(const QueueRunner&) = delete;
  QueueRunner& operator=(const QueueRunner&) = delete;
  ~QueueRunner() = default;

  /// From now on it looks at the queue, and makes what waits there. What an ended program has left running
  /// goes on from its last finished segment. With the runner ends the engine. Meanwhile the machine stays
  /// awake; that one has failed, or the last one is made, is told on the desktop.
  void start();

  /// Ends the job that is being made, which waits for its turn again; nothing else is begun.
  void stop();

  /// The queue as it was seen last.
  [[nodiscard]] const RenderQueue& queue() const { return queue_; }
  /// The job that is being made here; 0 for none.
  [[nodiscard]] int running() const { return running_; }
  /// How far that is.
  [[nodiscard]] const EngineRun& run() const { return driver_.state(); }
  /// Another copy of the program makes the jobs.
  [[nodiscard]] bool isElsewhere() const { return isElsewhere_; }
  /// How many have failed here since start().
  [[nodiscard]] int failed() const { return failed_; }
  /// Nothing is made, here or elsewhere, and nothing waits.
  [[nodiscard]] bool isIdle() const;
  /// Why the queue can be read or written no more; empty else.
  [[nodiscard]] const std::string& trouble() const { return trouble_; }

 private:
  void look();
  bool takeLock();
  void mend();
  void follow();
  [[nodiscard]] const QueueJob* nextFree() const;
  void begin(const QueueJob& job);
  void hear();
  void hearEnd();
  void tellEnd(const QueueJob& job) const;
  void write(int number, const std::function<void(QueueJob&)>& change);

  Ports ports_;
  std::function<void()> changed_;
  RenderDriver driver_;
  std::unique_ptr<Timer> timer_;
  std::unique_ptr<FileLock> lock_;
  bool isElsewhere_ = false;
  RenderQueue queue_;
  int running_ = 0;
  int failed_ = 0;
  std::optional<Awake> awake_;
  RenderOrder order_;   // of the one that runs
  double written_ = 0;  // its share as the others hear of it
  bool stops_ = false;
  std::string trouble_;
};

/// Takes a job out of the queue with all that is kept for it. One that is being made, here or elsewhere, is
/// ended by its runner within half a second. Fails, too, where what is kept cannot be removed.
Outcome removeQueued(QueueStore& store, Files& files, NameLocks& locks, int number);

}  // namespace kvo
