// Renders that wait their turn, in virtual time.
#include "base/numbers.h"
#include "render/queue/queue_rows.h"
#include "render/queue/queue_runner.h"
#include "support/fake_processes.h"
#include "support/golden.h"
#include "support/memory_files.h"
#include "support/memory_folders.h"
#include "support/memory_locks.h"
#include "support/noted_work.h"
#include "support/virtual_loop.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(RenderQueueText, IsReadAsItIsWritten) {
  RenderQueue queue;
  auto& job =
      **addJob(queue, "Holiday\n[job]", {.document = "d", .output = "/out/a=b \\.wmv", .codec = "mpeg4"});
  job.state = JobState::Failed;
  job.failure = "disk full";
  job.share = 0.25;
  job.order.range = {1.5, 4};
  job.order.profile = 7;
  job.order.preset = "web";
  job.order.quality = 21;
  job.order.effort = "slow";
  job.order.megabytes = 24.5;
  job.order.encoder = "auto";
  job.order.profileFile = "/q/1.prx";
  ASSERT_TRUE(addJob(queue, "", {.document = "d", .output = "/b.avi"}));
  ASSERT_TRUE(removeJob(queue, 2));
  const auto text = queueText(queue);
  const auto read = *readQueue(text);
  EXPECT_EQ(queueText(read), text);
  ASSERT_EQ(read.jobs.size(), 1U);
  EXPECT_EQ(engineArguments(read.jobs[0].order, "d"), engineArguments(queue.jobs[0].order, "d"));
  EXPECT_EQ(read.jobs[0].title, "Holiday\n[job]");
  EXPECT_EQ(read.jobs[0].order.range, (std::pair{1.5, 4.0}));
  EXPECT_EQ(read.jobs[0].order.workFolder, "/out/.rendering-a=b \\.wmv");
  EXPECT_EQ(read.lastNumber, 2) << "the number of one that is gone is not used again";
  for (const auto* junk : {"", "KVO5 render queue\n[job]\nnumber=x\noutput=/a.avi\n",
                           "KVO5 render queue\nnumber=1\n[job]\nnumber=3\n"})
    EXPECT_TRUE(readQueue(junk)->jobs.empty()) << junk;
  EXPECT_FALSE(readQueue("KVO5 render queue 2\n[job]\nnumber=1\noutput=/a.avi\n"));
}

TEST(RenderQueueText, IsShownAsRows) {
  RenderQueue queue;
  for (const auto state :
       {JobState::Waiting, JobState::Running, JobState::Paused, JobState::Done, JobState::Failed}) {
    auto& job = **addJob(queue, "", {.document = "d", .output = "/out/" + std::string(stateWord(state))});
    job.state = state;
    job.share = 0.425;
    if (state == JobState::Failed) job.failure = "disk full";
  }
  EXPECT_EQ(queuedRows(queue),
            (std::vector<QueuedRow>{{1, "waiting", "waiting", "", true, false},
                                    {2, "running", "43%", "", true, false},
                                    {3, "paused", "paused", "", false, true},
                                    {4, "done", "done", "", false, false, false, false, true},
                                    {5, "failed", "failed", "disk full", false, true, true}}));
}

TEST(RenderQueueText, IsToldInAFewWords) {
  struct Row {
    std::vector<JobState> jobs;
    const char* text;
    bool isBad;
  };
  using enum JobState;
  for (const auto& [jobs, text, isBad] :
       {Row{{}, "", false}, Row{{Done}, "", false}, Row{{Running}, "43%", false},
        Row{{Done, Running, Waiting}, "43%, 1 render waits", false},
        Row{{Running, Waiting, Failed, Waiting, Paused}, "43%, 2 renders wait, 1 render failed", true},
        Row{{Failed, Failed}, "2 renders failed", true}, Row{{Paused, Done}, "1 render is paused", false}}) {
    RenderQueue queue;
    for (const auto state : jobs) {
      auto& job = queue.jobs.emplace_back();
      job.state = state;
      job.share = 0.425;
    }
    const auto glance = queueGlance(queue, "");
    EXPECT_EQ(glance.text, text);
    EXPECT_EQ(glance.isBad, isBad) << text;
    EXPECT_EQ(glance.about.empty(), glance.text.empty()) << text;
    EXPECT_EQ(queueGlance(queue, "disk full"), (WorkGlance{"The queue has stopped", "disk full", 0, true}));
  }
}

// Files at which somebody else may come first.
struct SharedFiles : test::MemoryFiles {
  std::function<void()> ahead = [] {};
  Result<std::unique_ptr<FileLock>> lock(const std::string& path) override {
    std::exchange(ahead, [] {})();
    return MemoryFiles::lock(path);
  }
};

using Act = Outcome (*)(RenderQueue&, int);

// Half a second behind each step, what stands is a line of the log.
class QueueRunnerTest : public testing::Test {
 protected:
  void handIn(int jobs) {
    for (int i = 1; i <= jobs; ++i) {
      const auto name = "/" + std::to_string(i) + ".avi";
      EXPECT_EQ(store.add("Holiday", {.document = "<" + name + ">", .output = name}, "").value(), i);
    }
    begin();
    step(
        "begin", [] {}, 0);
  }
  void TearDown() override { test::expectGoldenLog(log); }

  // The program is started anew.
  void begin() {
    runner.reset();
    runner = std::make_unique<QueueRunner>(
        QueueRunner::Ports{store, locks, {files, folders, processes, loop, "/bin/KVORender"}, &work}, [] {});
    runner->start();
  }
  // What is kept of the movie /NUMBER.avi.
  static std::string segment(int number) {
    return "/.rendering-" + std::to_string(number) + ".avi/0123456789abcdef-1.segment";
  }
  Result<int> adds(const std::string& output) {
    return store.add("", {.document = "d", .output = output}, "");
  }
  std::function<void()> removes(int number) {
    return [this, number] { EXPECT_TRUE(removeQueued(store, files, locks, number)); };
  }
  std::function<void()> does(Act act, int number) {
    return [=, this] { EXPECT_TRUE(store.change([&](RenderQueue& queue) { return act(queue, number); })); };
  }
  [[nodiscard]] std::function<void()> says(const char* line) const {
    return [this, line] { processes.say(line); };
  }
  [[nodiscard]] std::function<void()> ends(int exitCode) const {
    return [this, exitCode] { processes.end(exitCode); };
  }
  void step(
      const std::string& what, const std::function<void()>& act = [] {}, int milliseconds = 500) {
    act();
    if (milliseconds > 0) loop.advance(milliseconds);  // else not even what is posted
    log += what + ":";
    const auto queue = store.read();
    if (!queue) log += " " + queue.error().text;
    for (const auto& row : queue ? queuedRows(*queue) : std::vector<QueuedRow>()) {
      const auto share = std::ranges::find(queue->jobs, row.number, &QueueJob::number)->share;
      log += " [" + std::to_string(row.number) + " " + row.name + " " + row.state + " of " +
             FormatMask(share, "0.00") + (row.canPause ? " pause" : "") + (row.canGoOn ? " go on" : "") +
             (row.hasFailed ? " again" : "") + (row.isInOnePiece ? " whole" : "") +
             (row.canView ? " view" : "") + (row.failure.empty() ? "" : ": " + row.failure) + "]";
    }
    log += "; engine " + std::to_string(processes.all.size()) +
           (!processes.all.empty() && processes.last().stopped ? " stopped" : "") +
           (runner->isIdle() ? ", idle" : "") + ", failed " + std::to_string(runner->failed()) + " " +
           runner->trouble() + "; " + std::exchange(work.notes, "") + "; ";
    for (const auto& [name, bytes] : files.all) {
      if (!name.starts_with("/tmp/") && !name.ends_with("Queue.txt")) log += name + " ";
    }
    log += "\n";
  }

  SharedFiles files;
  test::MemoryFolders folders;
  test::MemoryLocks locks;
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  test::NotedWork work;
  std::string log;
  QueueStore store{files, "/q", [this](const std::string& line) { log += "SAID " + line + "\n"; }};
  std::unique_ptr<QueueRunner> runner;
};

TEST_F(QueueRunnerTest, MakesOneBehindTheOther) {
  handIn(3);
  EXPECT_TRUE(processes.last().order.ownGroup) << "no terminal stops it";
  EXPECT_EQ(files.all["/tmp/kvo/KVORender.xtl"], "</1.avi>") << "its own copy of the document";
  EXPECT_NE(files.all["/tmp/kvo/KVORender.bat"].find("'/K' '/.rendering-1.avi'"), std::string::npos);
  step("the third comes second",
       [&] { EXPECT_TRUE(store.change([](RenderQueue& queue) { return moveJob(queue, 3, 2); })); });
  step("a quarter is made", says("progress 1.000 4.000"));
  step("1 is made", ends(0));
  processes.sayError("KVORender: disk full");
  step("3 fails", ends(1));
  step("2 is made", ends(0));
  step("resume 3", does(resumeJob, 3));
  step("of another start none has failed", [&] { runner->start(); });
}

TEST_F(QueueRunnerTest, HeedsWhatIsDoneToAJob) {
  handIn(2);
  files.all[segment(1)] = files.all[segment(2)] = "kept";
  step("a quarter is made", says("progress 1.000 4.000"));
  step("pause 1", does(pauseJob, 1));
  step("another one's turn, and the user knows", ends(143));
  step("resume 1", does(resumeJob, 1));
  auto engine = locks.tryMaking("/2.avi");
  step("remove 2 while the engine writes there", removes(2));
  engine->reset();
  step("it has ended; the engine is to say how much of 1 it goes on from", ends(143));
  files.all.erase(segment(1));
  step("half of it is made", says("progress 2.000 4.000"));
  runner->stop();
  step("stop, and nothing is kept of it", ends(143));
  step(
      "nothing is begun behind a stop", [] {}, 5000);
  files.all[segment(1)] = "kept";
  step("remove 1", removes(1));
}

TEST_F(QueueRunnerTest, BeginsNothingThatIsPausedMeanwhile) {
  handIn(2);
  files.ahead = [&] { files.ahead = does(pauseJob, 2); };
  step("1 is made", ends(0), 400);
  step(
      "2 is paused as it would begin", [] {}, 600);
}

TEST_F(QueueRunnerTest, SweepsNothingThatSomebodyMayGoOnFrom) {
  handIn(1);
  step("1 fails", ends(1));
  files.all[segment(1)] = "kept";
  EXPECT_EQ(*adds("/1.avi"), 2);
  step("remove 1, of which another makes the output", removes(1));
  files.unreadable.insert("/q/Queue.txt");
  step("a queue that cannot be read", ends(143));
  files.unreadable.clear();
  step("it can again");
  step("2 is made", ends(0));
  step("remove 2; what is there behind a movie's completion is somebody else's", removes(2));
}

TEST_F(QueueRunnerTest, KeepsAFileThatIsNoneOfAQueue) {
  handIn(0);
  const std::string foreign = "KVO5 render queue 2\n[render]\n";
  files.all["/q/Queue.txt"] = foreign;
  files.all["/q/7.xtl"] = "a document of that queue";
  step("looking leaves it");
  files.failAt = files.calls + 1;
  EXPECT_FALSE(adds("/1.avi"));
  EXPECT_EQ(files.all["/q/Queue.txt"], foreign);
  step("the documents that stand there may be of use", [&] { EXPECT_EQ(*adds("/1.avi"), 8); });
  EXPECT_EQ(files.all["/q/Queue not understood 1.txt"], foreign);
  files.all["/q/Queue.txt"] = "other";
  step("another", [&] { EXPECT_TRUE(adds("/1.avi")); });
  EXPECT_EQ(files.all["/q/Queue not understood 2.txt"], "other");
}

TEST_F(QueueRunnerTest, WaitsForAnotherRenderOfTheSameOutput) {
  handIn(0);
  auto window = locks.tryMaking("/1.avi");
  for (const auto* name : {"/1.avi", "/2.avi"}) EXPECT_TRUE(adds(name));
  step("somebody makes 1");
  step("2 is made", ends(0));
  files.all[segment(1)] = "kept";
  step("remove 1, where somebody is at work", removes(1));
  step("once more", [&] { EXPECT_TRUE(adds("/1.avi")); });
  step("its turn", [&] { window->reset(); });
}

TEST_F(QueueRunnerTest, MakesAgainWhatCouldNotBeWrittenDown) {
  handIn(1);
  files.failedReplaces = 1;
  step("it has ended, and cannot be told", ends(0), 0);
  files.failedReplaces = 2;
  step("nothing is begun while the disk is full");
  step("there is room");
  step("made again", ends(0));
}

TEST_F(QueueRunnerTest, SurvivesTheEndOfItsProgram) {
  handIn(2);
  step("begun again, on the segments that stand", [&] { begin(); });
  QueueRunner other({store, locks, {files, folders, processes, loop, "/bin/KVORender"}}, [] {});
  step("one of all copies makes them", [&] { other.start(); });
  EXPECT_TRUE(other.isElsewhere());
  EXPECT_EQ(other.queue().jobs.size(), 2U) << "and all see them";
}

TEST_F(QueueRunnerTest, TellsWhatCannotBeDone) {
  handIn(1);
  for (const auto& [act, number] :
       {std::pair<Act, int>{pauseJob, 7}, {resumeJob, 7}, {removeJob, 7}, {resumeJob, 1}})
    log += store.change([act = act, number = number](RenderQueue& queue) { return act(queue, number); })
               .error()
               .text +
           "\n";
  processes.refusal = "cannot start it";
  EXPECT_TRUE(store.add("", {.document = "d", .output = "/x.avi"}, "profile"));
  EXPECT_EQ(files.all["/q/2.prx"], "profile");
  step("the next cannot begin", ends(0));
  files.unreadable.insert("/q/Queue.txt");
  step("it cannot be read");
}

}  // namespace
}  // namespace kvo
