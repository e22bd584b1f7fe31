// A cluster that answers as it is told, in virtual time.
#include "render/cluster/cluster_render.h"
#include "support/fake_processes.h"
#include "support/memory_files.h"
#include "support/memory_folders.h"
#include "support/virtual_loop.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct Clustered {
  test::MemoryFiles files;
  test::MemoryFolders folders;
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  ClusterRender cluster{{{files, folders, processes, loop, "/bin/KVORender"},
                         [](const RenderOrder&, const std::string&) {
                           return Result(std::vector<std::string>{"/w/0", "/w/1", "/w/2"});
                         },
                         [this] { letGo = true; }},
                        [] {}};
  bool letGo = false;

  // Arrays of an earlier start are out.
  explicit Clustered(bool out = false) {
    const RenderOrder order{.document = "<timeline>", .output = "/o's.avi", .workFolder = "/w"};
    EXPECT_TRUE(cluster.start({order, "profile", 2}));
    if (out) return;
    finds({});
  }
  // To the question for such arrays.
  void finds(const std::vector<std::string>& jobs) {
    EXPECT_EQ(processes.last().order.arguments[1], "--me");
    for (const auto& job : jobs) processes.say(job);
    processes.end(0);
  }
  // Answers what was asked last, and lets a second pass.
  void answer(const std::vector<std::string>& lines, int exitCode = 0, const char* error = "") {
    for (const auto& line : lines) processes.say(line);
    if (*error != '\0') processes.sayError(error);
    processes.end(exitCode);
    loop.advance(1000);
  }
  // "sbatch --array=1,2"
  [[nodiscard]] std::string asked() const {
    const auto& order = processes.last().order;
    for (const auto& word : order.arguments) {
      if (word.starts_with("--array="))
        return std::filesystem::path(order.program).filename().string() + " " + word;
    }
    return std::filesystem::path(order.program).filename().string() + " " + order.arguments.front();
  }
};

TEST(ClusterRenderTest, HandsSharesInAndJoinsThem) {
  Clustered f;
  EXPECT_EQ(f.asked(), "sbatch --array=1,2");
  EXPECT_EQ(f.files.all["/w/render.sh"],
            "#!/bin/sh\nexport KVO5_PROFILE='/w/render.prx'\n'/bin/KVORender' '/K' '/w' '/J' "
            "\"$SLURM_ARRAY_TASK_ID/2\" '/W' '/o'\\''s.avi' '/w/render.xtl'\ncode=$?\n"
            "echo \"the share has ended with $code $SLURM_ARRAY_JOB_ID\" >&2\nexit $code\n");
  EXPECT_EQ(f.files.all["/w/render.xtl"], "<timeline>");
  EXPECT_EQ(f.files.all["/w/render.prx"], "profile");
  f.answer({"4711"});
  EXPECT_EQ(f.asked(), "squeue --noheader");
  f.files.all["/w/1"] = "made";
  f.answer({"RUNNING", "PENDING"});
  EXPECT_EQ(f.cluster.state().made, 1U);
  f.answer({}, 1, "slurm_load_jobs error: Unable to contact slurm controller (connect failure)");
  EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Making) << "it may come back";
  EXPECT_FALSE(f.letGo) << "nobody else is to make that output";
  f.files.all["/w/0"] = f.files.all["/w/2"] = "made";
  f.answer({}, 1, "slurm_load_jobs error: Invalid job id specified");
  EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Joining);
  EXPECT_TRUE(f.letGo) << "the engine holds it itself";
  EXPECT_EQ(f.files.all["/tmp/kvo/KVORender.xtl"], "<timeline>");
  f.processes.end(0);
  EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Done);
}

TEST(ClusterRenderTest, HandsInWhatFailedAFewTimes) {
  Clustered f;
  f.files.all["/w/1"] = "made";
  for (int attempt = 1; attempt <= 3; ++attempt) {
    EXPECT_EQ(f.cluster.state().attempt, attempt);
    EXPECT_EQ(f.asked(), attempt == 1 ? "sbatch --array=1,2" : "sbatch --array=1") << "the share of 0 and 2";
    const auto job = std::to_string(attempt);
    f.answer({job + ";cluster"});
    f.files.all["/w/job-1.err"] = std::string(1U << 20U, '\n') +
                                  "KVORender: a.avi: no such file\nslurmstepd: end of " + job +
                                  "\nthe share has ended with 1 " + job + "\n";
    f.answer({});
    if (attempt < 3) f.finds({});
    EXPECT_EQ(f.cluster.state().says,
              (std::vector<std::string>{"KVORender: a.avi: no such file", "slurmstepd: end of " + job}));
  }
  EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Failed);
  EXPECT_EQ(f.cluster.state().failure, "a.avi: no such file");
  EXPECT_EQ(f.processes.all.size(), 9U);
}

// A shared folder shows some of it late, and of a job that was killed there is no last line.
TEST(ClusterRenderTest, WaitsForWhatIsSeenLate) {
  const std::string end = "the share has ended with ";
  struct Row {
    const char* what;
    std::string line;  // the last one of the share that has not come
    int seconds;       // that it is waited for
  };
  for (const auto& row :
       {Row{"was made", end + "0 4711", 60}, Row{"says nothing", "", 60},
        Row{"has failed", end + "1 4711", 0}, Row{"failed another time", end + "1 47110", 60}}) {
    for (const bool comes : {true, false}) {
      if (comes && row.seconds == 0) continue;
      Clustered f;
      f.answer({"4711"});
      f.files.all["/w/0"] = f.files.all["/w/2"] = "made";
      f.files.all["/w/job-2.err"] = row.line + "\n";
      f.processes.end(0);
      if (row.seconds > 0) f.loop.advance(row.seconds * 1000 - 1000);
      EXPECT_EQ(f.cluster.state().phase, row.seconds > 0 ? ClusterPhase::Making : ClusterPhase::Submitting)
          << row.what;
      if (comes) f.files.all["/w/1"] = "made";
      f.loop.advance(1000);
      EXPECT_EQ(f.cluster.state().phase, comes ? ClusterPhase::Joining : ClusterPhase::Submitting)
          << row.what;
    }
  }
}

TEST(ClusterRenderTest, IsNotHeldUpByAClusterThatSaysNothing) {
  const auto stopped = [](Clustered& f, const std::string& says) {
    f.cluster.stop();
    f.loop.advance(9000);
    EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Stopping);
    f.loop.advance(1000);
    EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Stopped);
    EXPECT_EQ(f.cluster.state().failure, says);
    EXPECT_TRUE(f.processes.last().destroyed);
  };
  Clustered submits;
  stopped(submits, "the cluster does not answer; it may have taken the jobs");
  Clustered makes;
  makes.answer({"4711"});
  const auto squeue = makes.processes.all.back();
  makes.loop.advance(5000);
  EXPECT_EQ(makes.processes.all.back(), squeue) << "an answer that is late is waited for";
  stopped(makes, "the cluster does not answer; job 4711 may go on");
  EXPECT_TRUE(squeue->destroyed);
  Clustered waits;
  waits.answer({"4711"});
  waits.loop.advance(290000);
  EXPECT_EQ(waits.cluster.state().phase, ClusterPhase::Making);
  EXPECT_GT(waits.processes.all.size(), 5U) << "it is asked again";
  waits.loop.advance(60000);
  EXPECT_EQ(waits.asked(), "scancel 4711");
  EXPECT_EQ(waits.cluster.state().failure, "the cluster does not answer; job 4711 may go on");
  EXPECT_EQ(waits.cluster.state().phase, ClusterPhase::Failed);
  EXPECT_TRUE(waits.cluster.state().mayGoOn) << "nobody is to sweep under it";
}

TEST(ClusterRenderTest, FollowsTheJobsOfAnEarlierStart) {
  Clustered f(true);
  f.finds({"4711", "4711"});
  EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Making);
  f.loop.advance(1000);
  EXPECT_EQ(f.processes.last().order.arguments[2], "--jobs=4711");
  f.files.all["/w/0"] = f.files.all["/w/1"] = f.files.all["/w/2"] = "made";
  f.answer({});
  EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Joining);
  EXPECT_EQ(f.processes.all.size(), 3U) << "none is handed in";
}

TEST(ClusterRenderTest, TakesItsJobsBack) {
  struct Row {
    const char* when;
    std::vector<std::vector<std::string>> answers;  // ahead of the stop
    std::vector<std::string> last;                  // to what was asked when it came
    const char* asked;                              // behind it
  };
  for (const auto& row : {Row{"while they are handed in", {}, {"4711"}, "scancel 4711"},
                          Row{"while they are at work", {{"4711"}}, {}, "scancel 4711"},
                          Row{"when none was taken", {}, {}, "sbatch --array=1,2"}}) {
    Clustered f;
    for (const auto& lines : row.answers) f.answer(lines);
    f.cluster.stop();
    f.answer(row.last);
    EXPECT_EQ(f.asked(), row.asked) << row.when;
    if (f.cluster.state().phase == ClusterPhase::Stopping) f.answer({});
    EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Stopped) << row.when;
  }
  Clustered f;
  f.answer({}, 1, "sbatch: error: no partition");
  EXPECT_EQ(f.cluster.state().phase, ClusterPhase::Failed);
  EXPECT_EQ(f.cluster.state().failure, "sbatch: error: no partition");
}

}  // namespace
}  // namespace kvo
