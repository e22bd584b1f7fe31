// A cluster that answers as it is told, in virtual time.
#include "render/cluster/cluster_render.h"
#include "support/fake_processes.h"
#include "support/golden.h"
#include "support/memory_files.h"
#include "support/memory_folders.h"
#include "support/virtual_loop.h"

#include <filesystem>
#include <optional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

// What stands behind each step is a line of the log.
class ClusterRenderTest : public testing::Test {
 protected:
  // Arrays of an earlier start are asked for, and none is found unless the test says so.
  void begin(const std::vector<std::string>& found = {}) {
    cluster.emplace(ClusterRender::Ports{{files, folders, processes, loop, "/bin/KVORender"},
                                         [](const RenderOrder&, const std::string&) {
                                           return Result(std::vector<std::string>{"/w/0", "/w/1", "/w/2"});
                                         },
                                         [this] { letGo = true; }},
                    [] {});
    letGo = false;
    for (const auto* name : {"/w/0", "/w/1", "/w/2"}) files.all.erase(name);
    const RenderOrder order{.document = "<timeline>", .output = "/o's.avi", .workFolder = "/w"};
    EXPECT_TRUE(cluster->start({order, "profile", 2}));
    finds(found);
    step("begin");
  }
  void TearDown() override { test::expectGoldenLog(log); }

  void finds(const std::vector<std::string>& jobs) {
    EXPECT_EQ(processes.last().order.arguments[1], "--me");
    for (const auto& job : jobs) processes.say(job);
    processes.end(0);
  }
  void makes(const std::vector<std::string>& names) {
    for (const auto& name : names) files.all["/w/" + name] = "made";
  }
  // Answers what was asked last, and lets a second pass.
  [[nodiscard]] std::function<void()> answers(const std::vector<std::string>& lines, int exitCode = 0,
                                              const std::string& error = "") {
    return [=, this] {
      for (const auto& line : lines) processes.say(line);
      if (!error.empty()) processes.sayError(error);
      processes.end(exitCode);
      loop.advance(1000);
    };
  }
  [[nodiscard]] std::function<void()> passes(int seconds) {
    return [=, this] { loop.advance(seconds * 1000); };
  }
  // "Making 1 made, try 1; 2 asked, the last sbatch --array=1,2"
  void step(
      const std::string& what, const std::function<void()>& act = [] {}) {
    static constexpr const char* kPhases[] = {"Idle",     "Submitting", "Making", "Joining",
                                              "Stopping", "Done",       "Failed", "Stopped"};
    act();
    const auto& state = cluster->state();
    const auto& order = processes.last().order;
    log += what + ": " + kPhases[static_cast<int>(state.phase)] + " " + std::to_string(state.made) +
           " made, try " + std::to_string(state.attempt) + (letGo ? ", let go" : "") +
           (state.mayGoOn ? ", may go on" : "") + "; " + std::to_string(processes.all.size()) +
           " asked, the last " + std::filesystem::path(order.program).filename().string();
    for (const auto& word : order.arguments) log += word.find("name=") != std::string::npos ? "" : " " + word;
    log += std::string(processes.last().destroyed ? " (given up)" : "") + "; " + state.failure;
    for (const auto& line : state.says) log += "|" + line;
    log += "\n";
  }

  test::MemoryFiles files;
  test::MemoryFolders folders;
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  std::optional<ClusterRender> cluster;
  bool letGo = false;
  std::string log;
};

TEST_F(ClusterRenderTest, HandsSharesInAndJoinsThem) {
  begin();
  for (const auto* name : {"/w/render.sh", "/w/render.xtl", "/w/render.prx"}) log += files.all[name] + "\n";
  step("taken", answers({"4711"}));
  makes({"1"});
  step("one is made", answers({"RUNNING", "PENDING"}));
  step("it may come back, and nobody else is to make that output",
       answers({}, 1, "slurm_load_jobs error: Unable to contact slurm controller (connect failure)"));
  makes({"0", "2"});
  step("all are made; the engine holds the output itself",
       answers({}, 1, "slurm_load_jobs error: Invalid job id specified"));
  EXPECT_EQ(files.all["/tmp/kvo/KVORender.xtl"], "<timeline>");
  step("joined", answers({}));
}

TEST_F(ClusterRenderTest, HandsInWhatFailedAFewTimes) {
  begin();
  makes({"1"});  // the other share is that of 0 and 2
  for (int attempt = 1; attempt <= 3; ++attempt) {
    const auto job = std::to_string(attempt);
    step("taken", answers({job + ";cluster"}));
    files.all["/w/job-1.err"] = std::string(1U << 20U, '\n') +
                                "KVORender: a.avi: no such file\nslurmstepd: end of " + job +
                                "\nthe share has ended with 1 " + job + "\n";
    step("it fails", answers({}));
    if (attempt < 3) finds({});
    step("no job is found");
  }
}

// A shared folder shows some of it late, and of a job that was killed there is no last line.
TEST_F(ClusterRenderTest, WaitsForWhatIsSeenLate) {
  const auto says = [&](const std::string& line) {
    begin();
    answers({"4711"})();
    makes({"0", "2"});
    files.all["/w/job-2.err"] = line + "\n";
    step("the share that has not come says '" + line + "'", [&] { processes.end(0); });
  };
  const std::string end = "the share has ended with ";
  says(end + "1 4711");  // of which nothing is waited for
  for (const auto& line : {end + "0 4711", std::string(), end + "1 47110"}) {
    for (const bool comes : {true, false}) {
      says(line);
      step("59 seconds", passes(59));
      if (comes) makes({"1"});
      step(comes ? "it comes" : "it does not", passes(1));
    }
  }
}

TEST_F(ClusterRenderTest, IsNotHeldUpByAClusterThatSaysNothing) {
  const auto stops = [&] {
    cluster->stop();
    step("stop", passes(9));
    step("ten seconds", passes(1));
  };
  begin();
  stops();
  begin();
  step("taken", answers({"4711"}));
  const auto squeue = processes.all.back();
  step("an answer that is late is waited for", passes(5));
  stops();
  EXPECT_TRUE(squeue->destroyed);
  begin();
  step("taken", answers({"4711"}));
  step("it is asked again", passes(290));
  step("nobody is to sweep under it", passes(60));
}

TEST_F(ClusterRenderTest, FollowsTheJobsOfAnEarlierStart) {
  begin({"4711", "4711"});
  step("a second", passes(1));
  makes({"0", "1", "2"});
  step("none is handed in", answers({}));
}

TEST_F(ClusterRenderTest, TakesItsJobsBack) {
  begin();
  cluster->stop();
  step("stopped while they are handed in", answers({"4711"}));
  step("taken back", answers({}));
  begin();
  answers({"4711"})();
  cluster->stop();
  step("stopped while they are at work", answers({}));
  begin();
  cluster->stop();
  step("stopped when none was taken", answers({}));
  begin();
  step("none can be taken", answers({}, 1, "sbatch: error: no partition"));
}

}  // namespace
}  // namespace kvo
