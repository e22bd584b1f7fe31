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

struct Farmed {
  test::MemoryFiles files;
  test::MemoryFolders folders;
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  FarmRender farm{{{files, folders, processes, loop, "/bin/KVORender"},
                   [](const RenderOrder&, const std::string&) {
                     return Result(std::vector<std::string>{"/w/0", "/w/1", "/w/2"});
                   }},
                  [] {}};

  Farmed() {
    const RenderOrder order{.document = "<timeline>", .output = "/o's.avi", .workFolder = "/w"};
    EXPECT_TRUE(farm.start({order, "profile", 2}));
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

TEST(FarmRenderTest, HandsSharesInAndJoinsThem) {
  Farmed f;
  EXPECT_EQ(f.asked(), "sbatch --array=1,2");
  EXPECT_EQ(f.files.all["/w/render.sh"],
            "#!/bin/sh\nexport KVO5_PROFILE='/w/render.prx'\nexec '/bin/KVORender' '/K' '/w' '/J' "
            "\"$SLURM_ARRAY_TASK_ID/2\" '/W' '/o'\\''s.avi' '/w/render.xtl'\n");
  EXPECT_EQ(f.files.all["/w/render.xtl"], "<timeline>");
  EXPECT_EQ(f.files.all["/w/render.prx"], "profile");
  f.answer({"4711"});
  EXPECT_EQ(f.asked(), "squeue --noheader");
  f.files.all["/w/1"] = "made";
  f.answer({"RUNNING", "PENDING"});
  EXPECT_EQ(f.farm.state().made, 1U);
  f.answer({}, 1, "slurm_load_jobs error: Unable to contact slurm controller (connect failure)");
  EXPECT_EQ(f.farm.state().phase, FarmPhase::Making) << "it may come back";
  f.files.all["/w/0"] = f.files.all["/w/2"] = "made";
  f.answer({}, 1, "slurm_load_jobs error: Invalid job id specified");
  EXPECT_EQ(f.farm.state().phase, FarmPhase::Joining);
  EXPECT_EQ(f.files.all["/tmp/kvo/KVORender.xtl"], "<timeline>");
  f.processes.end(0);
  EXPECT_EQ(f.farm.state().phase, FarmPhase::Done);
}

TEST(FarmRenderTest, HandsInWhatFailedAFewTimes) {
  Farmed f;
  f.files.all["/w/1"] = "made";
  for (int attempt = 1; attempt <= 3; ++attempt) {
    EXPECT_EQ(f.farm.state().attempt, attempt);
    EXPECT_EQ(f.asked(), attempt == 1 ? "sbatch --array=1,2" : "sbatch --array=1") << "the share of 0 and 2";
    f.files.all["/w/job-1.log"] =
        std::string(1U << 20U, '\n') + "KVORender: a.avi: no such file\nslurmstepd: end\n";
    f.answer({"4711;cluster"});
    f.answer({});
  }
  EXPECT_EQ(f.farm.state().phase, FarmPhase::Failed);
  EXPECT_EQ(f.farm.state().failure, "KVORender: a.avi: no such file");
  EXPECT_EQ(f.processes.all.size(), 6U);
}

TEST(FarmRenderTest, TakesItsJobsBack) {
  struct Row {
    const char* when;
    std::vector<std::vector<std::string>> answers;  // ahead of the stop
    std::vector<std::string> last;                  // to what was asked when it came
    const char* asked;                              // behind it
  };
  for (const auto& row : {Row{"while they are handed in", {}, {"4711"}, "scancel 4711"},
                          Row{"while they are at work", {{"4711"}}, {"RUNNING"}, "scancel 4711"},
                          Row{"when none was taken", {}, {}, "sbatch --array=1,2"}}) {
    Farmed f;
    for (const auto& lines : row.answers) f.answer(lines);
    f.farm.stop();
    f.answer(row.last);
    EXPECT_EQ(f.asked(), row.asked) << row.when;
    if (f.farm.state().phase == FarmPhase::Stopping) f.answer({});
    EXPECT_EQ(f.farm.state().phase, FarmPhase::Stopped) << row.when;
  }
  Farmed f;
  f.answer({}, 1, "sbatch: error: no partition");
  EXPECT_EQ(f.farm.state().phase, FarmPhase::Failed);
  EXPECT_EQ(f.farm.state().failure, "sbatch: error: no partition");
}

}  // namespace
}  // namespace kvo
