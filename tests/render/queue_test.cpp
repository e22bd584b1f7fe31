// Renders that wait their turn, in virtual time.
#include "render/queue/queue_rows.h"
#include "render/queue/queue_runner.h"
#include "support/fake_processes.h"
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
                                    {4, "done", "done", "", false, false},
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

struct Queued {
  SharedFiles files;
  test::MemoryFolders folders;
  test::MemoryLocks locks;
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  test::NotedWork work;
  std::vector<std::string> said;
  QueueStore store{files, "/q", [this](const std::string& line) { said.push_back(line); }};
  std::unique_ptr<QueueRunner> runner;

  explicit Queued(int jobs) {
    for (int i = 1; i <= jobs; ++i) {
      const auto name = "/" + std::to_string(i) + ".avi";
      EXPECT_EQ(store.add("Holiday", {.document = "<" + name + ">", .output = name}, "").value(), i);
    }
    begin();
  }
  // The program is started anew.
  void begin() {
    runner.reset();
    runner = std::make_unique<QueueRunner>(
        QueueRunner::Ports{store, locks, {files, folders, processes, loop, "/bin/KVORender"}, &work}, [] {});
    runner->start();
  }
  // What is kept of the movie /NUMBER.avi.
  [[nodiscard]] static std::string segment(int number) {
    return "/.rendering-" + std::to_string(number) + ".avi/0123456789abcdef-1.segment";
  }
  [[nodiscard]] bool keeps(int number) const { return files.exists(segment(number)); }
  Outcome removes(int number) { return removeQueued(store, files, locks, number); }
  void does(Outcome (*act)(RenderQueue&, int), int number) {
    EXPECT_TRUE(store.change([&](RenderQueue& queue) { return act(queue, number); }));
    loop.advance(500);
  }
  // "1 running, 2 waiting"
  std::string told() {
    std::string text;
    const auto queue = store.read();
    for (const auto& job : queue->jobs)
      text +=
          (text.empty() ? "" : ", ") + std::to_string(job.number) + " " + std::string(stateWord(job.state));
    return text;
  }
  void end(int exitCode) {
    processes.end(exitCode);
    loop.advance(500);
  }
};

TEST(QueueRunnerTest, MakesOneBehindTheOther) {
  Queued q(3);
  EXPECT_EQ(q.told(), "1 running, 2 waiting, 3 waiting");
  EXPECT_TRUE(q.processes.last().order.ownGroup) << "no terminal stops it";
  EXPECT_EQ(q.files.all["/tmp/kvo/KVORender.xtl"], "</1.avi>") << "its own copy of the document";
  EXPECT_NE(q.files.all["/tmp/kvo/KVORender.bat"].find("'/K' '/.rendering-1.avi'"), std::string::npos);
  EXPECT_TRUE(q.store.change([](RenderQueue& queue) { return moveJob(queue, 3, 2); }));
  q.processes.say("progress 1.000 4.000");
  EXPECT_DOUBLE_EQ(q.store.read()->jobs[0].share, 0.25);
  q.end(0);
  EXPECT_EQ(q.told(), "1 done, 3 running, 2 waiting");
  EXPECT_FALSE(q.files.exists("/q/1.xtl"));
  q.processes.sayError("KVORender: disk full");
  q.end(1);
  EXPECT_EQ(q.told(), "1 done, 3 failed, 2 running");
  EXPECT_EQ(q.work.notes, "awake asleep awake asleep [3.avi could not be made.] awake ");
  q.work.notes.clear();
  EXPECT_EQ(q.store.read()->jobs[1].failure, "KVORender: disk full");
  q.end(0);
  EXPECT_TRUE(q.runner->isIdle());
  EXPECT_EQ(q.work.notes, "asleep [2.avi has been created !] ");
  q.does(resumeJob, 3);
  EXPECT_EQ(q.told(), "1 done, 3 running, 2 done");
  EXPECT_EQ(q.runner->failed(), 1);
  q.runner->start();
  EXPECT_EQ(q.runner->failed(), 0) << "of this start";
}

TEST(QueueRunnerTest, HeedsWhatIsDoneToAJob) {
  Queued q(2);
  q.files.all[Queued::segment(1)] = q.files.all[Queued::segment(2)] = "kept";
  q.processes.say("progress 1.000 4.000");
  q.does(pauseJob, 1);
  EXPECT_TRUE(q.processes.last().stopped);
  q.end(143);
  EXPECT_EQ(q.told(), "1 paused, 2 running") << "another one's turn";
  EXPECT_EQ(q.work.notes, "awake asleep awake ") << "the user knows";
  EXPECT_DOUBLE_EQ(q.store.read()->jobs[0].share, 0.25);
  q.does(resumeJob, 1);
  auto engine = q.locks.tryMaking("/2.avi");
  EXPECT_TRUE(q.removes(2));
  EXPECT_TRUE(q.keeps(2)) << "while the engine writes there";
  q.loop.advance(500);
  EXPECT_TRUE(q.processes.last().stopped);
  engine->reset();
  q.end(143);
  EXPECT_FALSE(q.keeps(2));
  EXPECT_EQ(q.told(), "1 running");
  EXPECT_DOUBLE_EQ(q.store.read()->jobs[0].share, 0) << "until the engine says how much it goes on from";
  q.files.all.erase(Queued::segment(1));
  q.processes.say("progress 2.000 4.000");
  EXPECT_DOUBLE_EQ(q.store.read()->jobs[0].share, 0.5);
  q.runner->stop();
  q.end(143);
  EXPECT_EQ(q.told(), "1 waiting");
  EXPECT_DOUBLE_EQ(q.store.read()->jobs[0].share, 0) << "nothing is kept of it";
  q.loop.advance(5000);
  EXPECT_EQ(q.told(), "1 waiting") << "nothing is begun behind a stop";
  q.files.all[Queued::segment(1)] = "kept";
  EXPECT_TRUE(q.removes(1));
  EXPECT_FALSE(q.keeps(1));
  EXPECT_FALSE(q.files.exists("/q/1.xtl"));
}

TEST(QueueRunnerTest, BeginsNothingThatIsPausedMeanwhile) {
  Queued q(2);
  q.files.ahead = [&] {
    q.files.ahead = [&] {
      EXPECT_TRUE(q.store.change([](RenderQueue& queue) { return pauseJob(queue, 2); }));
    };
  };
  q.processes.end(0);
  q.loop.advance(400);
  EXPECT_EQ(q.told(), "1 done, 2 waiting");
  q.loop.advance(600);
  EXPECT_EQ(q.told(), "1 done, 2 paused");
  EXPECT_EQ(q.processes.all.size(), 1U);
}

TEST(QueueRunnerTest, SweepsNothingThatSomebodyMayGoOnFrom) {
  Queued q(1);
  q.end(1);
  q.files.all[Queued::segment(1)] = "kept";
  EXPECT_EQ(*q.store.add("", {.document = "d", .output = "/1.avi"}, ""), 2);
  EXPECT_TRUE(q.removes(1));
  q.loop.advance(500);
  EXPECT_TRUE(q.keeps(1)) << "the other makes the same output";
  q.files.unreadable.insert("/q/Queue.txt");
  q.end(143);
  EXPECT_TRUE(q.files.exists("/q/2.xtl"));
  EXPECT_TRUE(q.keeps(1)) << "a queue that cannot be read";
  q.files.unreadable.clear();
  q.loop.advance(500);
  q.end(0);
  ASSERT_EQ(q.told(), "2 done");
  EXPECT_TRUE(q.removes(2));
  EXPECT_TRUE(q.keeps(1)) << "what is there behind a movie's completion is somebody else's";
}

TEST(QueueRunnerTest, KeepsAFileThatIsNoneOfAQueue) {
  Queued q(0);
  const std::string foreign = "KVO5 render queue 2\n[render]\n";
  q.files.all["/q/Queue.txt"] = foreign;
  q.files.all["/q/7.xtl"] = "a document of that queue";
  q.loop.advance(500);
  EXPECT_EQ(q.runner->trouble(), "/q/Queue.txt is not a queue of this program");
  EXPECT_EQ(q.files.all["/q/Queue.txt"], foreign) << "looking leaves it";
  const auto add = [&] { return q.store.add("", {.document = "d", .output = "/1.avi"}, ""); };
  q.files.failAt = q.files.calls + 1;
  EXPECT_FALSE(add());
  EXPECT_EQ(q.files.all["/q/Queue.txt"], foreign);
  EXPECT_TRUE(q.said.empty());
  EXPECT_EQ(*add(), 8) << "the documents that stand there may be of use";
  EXPECT_EQ(q.files.all["/q/Queue not understood 1.txt"], foreign);
  EXPECT_EQ(q.said, std::vector<std::string>{"/q/Queue.txt is not a queue of this program; it is kept as "
                                             "/q/Queue not understood 1.txt"});
  q.loop.advance(500);
  EXPECT_EQ(q.told(), "8 running");
  EXPECT_EQ(q.runner->trouble(), "");
  q.files.all["/q/Queue.txt"] = "other";
  EXPECT_TRUE(add());
  EXPECT_EQ(q.files.all["/q/Queue not understood 2.txt"], "other");
}

TEST(QueueRunnerTest, WaitsForAnotherRenderOfTheSameOutput) {
  Queued q(0);
  auto window = q.locks.tryMaking("/1.avi");
  for (const auto* name : {"/1.avi", "/2.avi"})
    ASSERT_TRUE(q.store.add("", {.document = "d", .output = name}, ""));
  q.loop.advance(500);
  EXPECT_EQ(q.told(), "1 waiting, 2 running");
  q.end(0);
  EXPECT_FALSE(q.runner->isIdle());
  q.files.all[Queued::segment(1)] = "kept";
  EXPECT_TRUE(q.removes(1));
  EXPECT_TRUE(q.keeps(1)) << "somebody is at work there";
  ASSERT_TRUE(q.store.add("", {.document = "d", .output = "/1.avi"}, ""));
  q.loop.advance(500);
  EXPECT_EQ(q.told(), "2 done, 3 waiting");
  window->reset();
  q.loop.advance(500);
  EXPECT_EQ(q.told(), "2 done, 3 running");
}

TEST(QueueRunnerTest, MakesAgainWhatCouldNotBeWrittenDown) {
  Queued q(1);
  q.files.failedReplaces = 1;
  q.processes.end(0);
  EXPECT_EQ(q.told(), "1 running") << "though it has ended";
  q.files.failedReplaces = 2;
  q.loop.advance(500);
  EXPECT_EQ(q.processes.all.size(), 1U) << "nothing is begun while the disk is full";
  q.loop.advance(500);
  EXPECT_EQ(q.processes.all.size(), 2U);
  q.end(0);
  EXPECT_EQ(q.told(), "1 done");
}

TEST(QueueRunnerTest, SurvivesTheEndOfItsProgram) {
  Queued q(2);
  const auto first = q.processes.all.size();
  q.begin();
  EXPECT_EQ(q.told(), "1 running, 2 waiting");
  EXPECT_EQ(q.processes.all.size(), first + 1) << "it is begun again, on the segments that stand";
  QueueRunner other({q.store, q.locks, {q.files, q.folders, q.processes, q.loop, "/bin/KVORender"}}, [] {});
  other.start();
  EXPECT_TRUE(other.isElsewhere());
  EXPECT_EQ(q.processes.all.size(), first + 1) << "one of all copies makes them";
  EXPECT_EQ(other.queue().jobs.size(), 2U) << "and all see them";
}

TEST(QueueRunnerTest, TellsWhatCannotBeDone) {
  Queued q(1);
  for (const auto act : {pauseJob, resumeJob, removeJob}) {
    EXPECT_EQ(q.store.change([&](RenderQueue& queue) { return act(queue, 7); }).error().text,
              "there is no job 7 in the queue");
  }
  EXPECT_EQ(q.store.change([](RenderQueue& queue) { return resumeJob(queue, 1); }).error().text,
            "job 1 is running");
  q.processes.refusal = "cannot start it";
  ASSERT_TRUE(q.store.add("", {.document = "d", .output = "/x.avi"}, "profile"));
  EXPECT_EQ(q.files.all["/q/2.prx"], "profile");
  q.end(0);
  EXPECT_EQ(q.told(), "1 done, 2 failed");
  EXPECT_EQ(q.work.notes, "awake asleep [x.avi could not be made.] ");
  q.files.unreadable.insert("/q/Queue.txt");
  q.loop.advance(500);
  EXPECT_NE(q.runner->trouble(), "");
}

}  // namespace
}  // namespace kvo
