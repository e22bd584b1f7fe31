#include "app/farm_command.h"

#include "adapters/posix/poll_loop.h"
#include "adapters/posix/stop_signals.h"
#include "app/console_render.h"
#include "app/engine_job.h"
#include "render/cluster/cluster_render.h"
#include "render/output_hold.h"

#include <filesystem>

namespace kvo {
namespace {

constexpr int kFarmLookEvery = 50;  // milliseconds between two looks for a stop signal

Result<std::vector<std::string>> farmSegments(const Files& files, const RenderOrder& order,
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
class FarmShow {
 public:
  void show(const FarmRun& run) {
    auto text = "segments " + std::to_string(run.made) + " of " + std::to_string(run.segments);
    if (run.attempt > 1) text += ", attempt " + std::to_string(run.attempt);
    if (run.phase == FarmPhase::Joining) text = "joining the segments";
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

int tellFarmEnd(const FarmRun& run, const EngineRun& joined, const RenderOrder& order) {
  if (run.phase == FarmPhase::Done) {
    for (const auto& hole : joined.damage) warn(damageText(hole));
    print("made " + order.output + ": " + bytesText(static_cast<double>(joined.report.bytes)) + "\n");
    return kExitDone;
  }
  if (run.phase == FarmPhase::Failed) return fail(run.failure);
  if (!run.failure.empty()) warn(run.failure);
  return fail("stopped; the same command goes on from here", kExitStopped);
}

}  // namespace

int renderOnFarm(Session& session, RenderOrder order, const std::string& profile, int jobs,
                 const std::string& engine) {
  order.output = absoluteName(order.output, std::filesystem::current_path().string());
  order.workFolder = workFolderOf(order.output);
  order.encoder.clear();  // its machines differ
  const bool isFresh = !session.files.isFolder(order.workFolder);
  auto held = holdOutput(session.files, session.nameLocks, order.output, order.workFolder);
  if (!held) return fail(held.error().text);
  StopSignals signals;
  PollLoop loop;
  FarmShow show;
  FarmRender farm({{session.files, session.temporaryFolders, session.processes, loop, engine, true},
                   [&](const RenderOrder& asked, const std::string& document) {
                     return farmSegments(session.files, asked, document);
                   },
                   [&] { held->reset(); }},
                  [&] {
                    show.show(farm.state());
                    if (farm.state().ended()) loop.quit();
                  });
  const auto leaveNothing = [&] {
    if (isFresh && farm.state().made == 0 && !farm.state().mayGoOn)
      (void)session.files.removeFolder(order.workFolder).ok();
  };
  if (auto begun = farm.start({order, profile, jobs}); !begun) {
    leaveNothing();
    return fail(begun.error().text);
  }
  const auto look = loop.timer([&] {
    if (signals.came()) farm.stop();
  });
  look->start(kFarmLookEvery);
  loop.run();
  if (farm.state().phase == FarmPhase::Failed) leaveNothing();
  // With what the jobs were told and have said.
  if (farm.state().phase == FarmPhase::Done)
    (void)dropWork(session.files, session.nameLocks, order.output).ok();
  return tellFarmEnd(farm.state(), farm.joining(), order);
}

}  // namespace kvo
