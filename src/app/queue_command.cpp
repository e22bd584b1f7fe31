#include "app/queue_command.h"

#include "adapters/posix/poll_loop.h"
#include "adapters/posix/stop_signals.h"
#include "app/commands.h"
#include "app/engine_job.h"
#include "base/numbers.h"

#include <filesystem>
#include <map>

namespace kvo {
namespace {

constexpr int kQueueLookEvery = 50;   // milliseconds between two looks for a stop signal
constexpr int kQueuePatience = 1200;  // milliseconds with another copy that makes the jobs

// "2  waiting   0%  /home/me/film.avi  (Holiday.INI)"
std::string jobText(const QueueJob& job) {
  auto text = std::to_string(job.number) + "  " + std::string(stateWord(job.state)) + "  " +
              FormatMask(job.share * 100, "0") + "%  " + job.order.output + "  (" + job.title + ")\n";
  if (!job.failure.empty()) text += "      " + job.failure + "\n";
  return text;
}

// What a program that is no more has left running waits.
int listQueue(Session& session, const QueueStore& store) {
  auto queue = store.read();
  if (!queue) return fail(queue.error().text);
  const auto nobodyRuns = session.nameLocks.tryLock(store.runnerLock());
  if (nobodyRuns && *nobodyRuns) mendQueue(*queue);
  for (const auto& job : queue->jobs) print(jobText(job));
  if (queue->jobs.empty()) print("the queue is empty\n");
  return kExitDone;
}

int addToQueue(Session& session, QueueStore& store, const CommandLine& line) {
  auto order = renderOrder(session, line);
  if (!order) return fail(order.error().text);
  order->output = absoluteName(order->output, std::filesystem::current_path().string());
  const auto profile = ownProfile(line);
  const auto inSegments = makesSegments(session.files, session.temporaryFolders, *order, profile);
  if (!inSegments) return fail(inSegments.error().text);
  const auto number = store.add(line.collection, *order, profile, !*inSegments);
  if (!number) return fail(number.error().text);
  print("job " + std::to_string(*number) + "\n");
  return kExitDone;
}

// Tells of each job when its state changes.
class QueueShow {
 public:
  void show(const RenderQueue& queue) {
    for (const auto& job : queue.jobs) {
      auto& shown = shown_.try_emplace(job.number, JobState::Waiting).first->second;
      if (shown != job.state) print(jobText(job));
      shown = job.state;
    }
  }

 private:
  std::map<int, JobState> shown_;
};

int makeQueue(Session& session, QueueStore& store, const std::string& engine) {
  StopSignals signals;
  PollLoop loop;
  QueueShow show;
  QueueRunner runner({store,
                      session.nameLocks,
                      {session.files, session.temporaryFolders, session.processes, loop, engine, true}},
                     [&] {
                       show.show(runner.queue());
                       const bool isStopped = signals.came() && runner.running() == 0;
                       if (runner.isIdle() || isStopped || !runner.trouble().empty()) loop.quit();
                     });
  const auto look = loop.timer([&] {
    if (signals.came()) runner.stop();
  });
  look->start(kQueueLookEvery);
  runner.start();
  // Who lists the queue has its name for a moment.
  const auto patience = loop.timer([&] {
    if (runner.isElsewhere()) loop.quit();
  });
  patience->start(kQueuePatience);
  if (!runner.isIdle()) loop.run();
  if (!runner.isIdle() && runner.isElsewhere()) return fail("another copy of the program makes the queue");
  if (!runner.trouble().empty()) return fail(runner.trouble());
  if (signals.came()) return fail("stopped; the queue goes on from here", kExitStopped);
  return runner.failed() == 0 ? kExitDone : kExitFailed;
}

}  // namespace

std::string queueFolder(const ProgramFolder& folder) { return folder.beside("\\Queue"); }

int runQueue(Session& session, const CommandLine& line, const std::string& engine) {
  QueueStore store(session.files, queueFolder(session.folder), warn);
  const auto changed = [&](auto act) {
    const auto done = store.change([&](RenderQueue& queue) { return act(queue); });
    return done ? kExitDone : fail(done.error().text);
  };
  const int number = line.queueNumber;
  switch (line.queueAct) {
    case QueueAct::Add:
      return addToQueue(session, store, line);
    case QueueAct::List:
      return listQueue(session, store);
    case QueueAct::Pause:
      return changed([&](RenderQueue& queue) { return pauseJob(queue, number); });
    case QueueAct::Resume:
      return changed([&](RenderQueue& queue) { return resumeJob(queue, number); });
    case QueueAct::Clear:
      return changed([](RenderQueue& queue) -> Outcome {
        clearDone(queue);
        return {};
      });
    case QueueAct::Move:
      return changed([&](RenderQueue& queue) { return moveJob(queue, number, line.queuePlace); });
    case QueueAct::Remove: {
      const auto done = removeQueued(store, session.files, session.nameLocks, number);
      return done ? kExitDone : fail(done.error().text);
    }
    case QueueAct::Run:
      break;
  }
  return makeQueue(session, store, engine);
}

}  // namespace kvo
