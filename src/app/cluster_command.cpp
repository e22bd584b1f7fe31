#include "app/cluster_command.h"

#include "adapters/posix/poll_loop.h"
#include "adapters/posix/stop_signals.h"
#include "app/console_render.h"
#include "app/engine_job.h"
#include "render/cluster/cluster_render.h"
#include "render/output_hold.h"

#include <filesystem>

namespace kvo {
namespace {

constexpr int kClusterLookEvery = 50;  // milliseconds between two looks for a stop signal

Result<std::vector<std::string>> clusterSegments(const Files& files, const RenderOrder& order,
                                                 const std::string& document) {
  const auto arguments = readEngineArguments(engineArguments(order, document));
  if (!arguments) return arguments.error();
  const auto job = readEngineJob(files, *arguments, order.profileFile);
  if (!job) return job.error();
  auto names = segmentFiles(files, *job);
  if (!names) return names;
  for (auto& name : *names) name.insert(0, order.workFolder + "/");
  return names;
}

// A line for each segment that has come, and for each time that some are handed in again, with what the job
// said.
class ClusterShow {
 public:
  void show(const ClusterRun& run) {
    auto text = "segments " + std::to_string(run.made) + " of " + std::to_string(run.segments);
    if (run.attempt > 1) text += ", attempt " + std::to_string(run.attempt);
    if (run.phase == ClusterPhase::Joining) text = "joining the segments";
    if (run.says != said_) {
      for (const auto& line : run.says) warn(line);
    }
    said_ = run.says;
    if (text != shown_) print(text + "\n");
    shown_ = text;
  }

 private:
  std::string shown_;
  std::vector<std::string> said_;
};

int tellClusterEnd(const ClusterRun& run, const EngineRun& joined, const RenderOrder& order) {
  if (run.phase == ClusterPhase::Done) {
    for (const auto& hole : joined.damage) warn(damageText(hole));
    print("made " + order.output + ": " + bytesText(static_cast<double>(joined.report.bytes)) + "\n");
    return kExitDone;
  }
  if (run.phase == ClusterPhase::Failed) return fail(run.failure);
  if (!run.failure.empty()) warn(run.failure);
  return fail("stopped; the same command goes on from here", kExitStopped);
}

}  // namespace

int renderOnCluster(Session& session, RenderOrder order, const std::string& profile, int jobs,
                    const std::string& engine) {
  order.output = absoluteName(order.output, std::filesystem::current_path().string());
  order.workFolder = workFolderOf(order.output);
  order.encoder.clear();  // its machines differ
  const bool isFresh = !session.files.isFolder(order.workFolder);
  auto held = holdOutput(session.files, session.nameLocks, order.output, order.workFolder);
  if (!held) return fail(held.error().text);
  StopSignals signals;
  PollLoop loop;
  ClusterShow show;
  ClusterRender cluster({{session.files, session.temporaryFolders, session.processes, loop, engine, true},
                         [&](const RenderOrder& asked, const std::string& document) {
                           return clusterSegments(session.files, asked, document);
                         },
                         [&] { held->reset(); }},
                        [&] {
                          show.show(cluster.state());
                          if (cluster.state().ended()) loop.quit();
                        });
  const auto leaveNothing = [&] {
    if (isFresh && cluster.state().made == 0 && !cluster.state().mayGoOn)
      (void)session.files.removeFolder(order.workFolder).ok();
  };
  if (auto begun = cluster.start({order, profile, jobs}); !begun) {
    leaveNothing();
    return fail(begun.error().text);
  }
  const auto look = loop.timer([&] {
    if (signals.came()) cluster.stop();
  });
  look->start(kClusterLookEvery);
  loop.run();
  if (cluster.state().phase == ClusterPhase::Failed) leaveNothing();
  // With what the jobs were told and have said.
  if (cluster.state().phase == ClusterPhase::Done)
    (void)dropWork(session.files, session.nameLocks, order.output).ok();
  return tellClusterEnd(cluster.state(), cluster.joining(), order);
}

}  // namespace kvo
